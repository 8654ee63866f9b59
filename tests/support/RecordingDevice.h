#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sparlow/platform/paint/Device.h"

namespace sparlow::test {

/// A surface that draws nothing and writes down what it was asked to draw, one line a call:
///   Line 1,2 3,4 style 0 width 1 color 0x0000FF          (" mix 10" unless R2_COPYPEN)
///   FillRect 1,2 3,4 color 0x0000FF
///   Rectangle 1,2 3,4 style ... fill 0xFFFFFF            Ellipse likewise
///   Text 1,2 "abc" height 15 color 0x0000FF
///   Copy 1,2 3,4 from 5,6
/// followed by " clip 1,2 3,4" where a clip is in force. Surfaces that it makes write to the same
/// list, each line after "memory: ". Every character is 7 by 15 pixels with a base line at 12.
class RecordingDevice : public Device {
 public:
  explicit RecordingDevice(CSize size = {800, 600}, int pixelsPerInch = 96)
      : size_(size), pixelsPerInch_(pixelsPerInch), calls_(std::make_shared<Calls>()) {}

  /// Has another size, and nothing drawn on it.
  void Remake(CSize size) {
    size_ = size;
    calls_ = std::make_shared<Calls>();
  }

  using Calls = std::vector<std::string>;
  const Calls& calls() const { return *calls_; }
  Calls take() { return std::exchange(*calls_, {}); }
  /// How many calls begin with a text.
  int count(std::string_view beginning) const {
    int found = 0;
    for (const std::string& call : *calls_)
      found += call.starts_with(beginning);
    return found;
  }

  CSize Size() const override { return size_; }
  int PixelsPerInch() const override { return pixelsPerInch_; }

  void Line(CPoint from, CPoint to, const Stroke& stroke, const Clip& clip) override {
    record("Line " + text(from) + " " + text(to) + text(stroke), clip);
  }
  void FillRect(const CRect& rect, COLORREF color, const Clip& clip) override {
    record("FillRect " + text(rect) + FormatText(" color 0x%06X", color), clip);
  }
  void Rectangle(const CRect& rect, const Stroke& outline, COLORREF fill,
                 const Clip& clip) override {
    record("Rectangle " + text(rect) + text(outline) + FormatText(" fill 0x%06X", fill), clip);
  }
  void Ellipse(const CRect& rect, const Stroke& outline, COLORREF fill, const Clip& clip) override {
    record("Ellipse " + text(rect) + text(outline) + FormatText(" fill 0x%06X", fill), clip);
  }
  void Text(CPoint topLeft, std::string_view utf8, const FontRequest& font, COLORREF color,
            const Clip& clip) override {
    record("Text " + text(topLeft) + " \"" + std::string(utf8) +
               FormatText("\" height %d color 0x%06X", font.cellHeight, color),
           clip);
  }
  CSize TextExtent(std::string_view utf8, const FontRequest&) const override {
    int characters = 0;
    for (const char c : utf8)
      characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return {7 * characters, 15};
  }
  int TextAscent(const FontRequest&) const override { return 12; }

  void Copy(const CRect& to, const Device&, CPoint from, const Clip& clip) override {
    record("Copy " + text(to) + " from " + text(from), clip);
  }
  COLORREF PixelAt(CPoint point) const override {
    return CRect{0, 0, size_.cx, size_.cy}.PtInRect(point) ? 0 : 0xFFFFFFFF;
  }
  std::unique_ptr<Device> MakeCompatible(CSize size) const override {
    auto made = std::make_unique<RecordingDevice>(size, pixelsPerInch_);
    made->calls_ = calls_;
    made->prefix_ = "memory: ";
    return made;
  }

 private:
  static std::string text(CPoint p) { return FormatText("%d,%d", p.x, p.y); }
  static std::string text(const CRect& r) {
    return FormatText("%d,%d %d,%d", r.left, r.top, r.right, r.bottom);
  }
  static std::string text(const Stroke& s) {
    return FormatText(" style %d width %d color 0x%06X", s.style, s.width, s.color) +
           (s.mix == R2_COPYPEN ? "" : FormatText(" mix %d", s.mix));
  }
  void record(const std::string& call, const Clip& clip) {
    calls_->push_back(prefix_ + call + (clip ? " clip " + text(*clip) : ""));
  }

  CSize size_;
  int pixelsPerInch_;
  std::string prefix_;
  std::shared_ptr<Calls> calls_;
};

}  // namespace sparlow::test
