#include "sparlow/platform/qt/QtFonts.h"

#include <QStringList>
#include <functional>
#include <unordered_map>

namespace sparlow::qt {

namespace {

constexpr int largestCell = 4096;

struct RequestHash {
  std::size_t operator()(const FontRequest& request) const {
    const auto numbers = static_cast<std::size_t>(request.cellHeight) * 1009u +
                         static_cast<std::size_t>(request.weight);
    return std::hash<std::string>()(request.face) ^ numbers;
  }
};

std::unordered_map<FontRequest, CellFont, RequestHash>& cache() {
  static std::unordered_map<FontRequest, CellFont, RequestHash> fonts;
  return fonts;
}

CellFont ofPixelSize(QFont font, int pixels) {
  font.setPixelSize(pixels);
  return {font, QFontMetrics(font)};
}

CellFont find(const FontRequest& request) {
  QFont font;
  font.setFamilies(
      {FromUtf8(ToUtf8(request.face)), QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
  font.setStyleHint(QFont::SansSerif);
  font.setWeight(static_cast<QFont::Weight>(std::clamp(request.weight, 1, 1000)));
  const int cell = std::clamp(request.cellHeight, 1, largestCell);
  // Height goes with the size, but for what is rounded to whole pixels.
  int pixels = cell * cell / std::max(1, ofPixelSize(font, cell).CellHeight()) + 2;
  while (pixels > 1 && ofPixelSize(font, pixels).CellHeight() > cell)
    --pixels;
  return ofPixelSize(font, pixels);
}

}  // namespace

const CellFont& FontFor(const FontRequest& request) {
  const auto found = cache().find(request);
  return found != cache().end() ? found->second
                                : cache().emplace(request, find(request)).first->second;
}

void ForgetFonts() {
  cache().clear();
}

}  // namespace sparlow::qt
