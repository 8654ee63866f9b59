#pragma once

#include <QImage>
#include <random>

#include "sparlow/platform/qt/ImageDevice.h"

namespace sparlow::test {

/// Pixels of an image: how many, and the rectangle around them.
struct Found {
  int count = 0;
  QRect area;
};

/// The pixels of a colour, or all the others.
inline Found Find(const QImage& image, COLORREF color, bool others = false) {
  Found found;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if ((qt::FromQt(image.pixel(x, y)) == color) == others)
        continue;
      ++found.count;
      found.area |= QRect(x, y, 1, 1);
    }
  }
  return found;
}

inline void MakeNoise(const qt::ImageDevice& device) {
  std::mt19937 random(3);
  QImage& image = const_cast<QImage&>(device.Image());
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      image.setPixel(x, y, 0xFF000000u | (random() & 0xFFFFFFu));
  }
}

}  // namespace sparlow::test
