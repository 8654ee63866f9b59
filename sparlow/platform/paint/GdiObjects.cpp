#include "sparlow/platform/paint/GdiObjects.h"

#include "sparlow/platform/paint/CDC.h"

namespace sparlow {

void CFont::CreateFont(int height, int weight, const char* face) {
  request_ = FontRequest{face ? face : "", std::max(height, 1), weight};
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
  if (!dc || !dc->device)
    return nullptr;
  return new Bitmap{dc->device->MakeCompatible({std::max(width, 1), std::max(height, 1)})};
}

void DeleteObject(HBITMAP bitmap) {
  delete bitmap;
}

}  // namespace sparlow
