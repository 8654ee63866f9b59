#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/paint/LineClip.h"
#include "sparlow/platform/qt/Application.h"
#include "sparlow/platform/qt/PageDevice.h"
#include "sparlow/platform/qt/QtFonts.h"

namespace sparlow::qt {

namespace {

constexpr double millimetresPerInch = 25.4;
/// A PDF file can't have larger pages.
constexpr double longestSide = 5080;
constexpr double shortestSide = 10;

bool isSide(double millimetres, int pixelsPerInch) {
  return millimetres >= shortestSide && millimetres <= longestSide &&
         millimetres / millimetresPerInch * pixelsPerInch <= deviceCoordinateLimit;
}

/// NaN lies in no range.
bool isPossible(const PdfPaper& paper) {
  return paper.pixelsPerInch >= 72 && paper.pixelsPerInch <= 2400 &&
         isSide(paper.width, paper.pixelsPerInch) && isSide(paper.height, paper.pixelsPerInch) &&
         paper.margin >= 0 && paper.margin <= std::min(paper.width, paper.height) / 3;
}

bool canDraw() {
  return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

}  // namespace

struct Page::Parts {
  std::unique_ptr<QSaveFile> file;  ///< null when the host gave the target
  std::unique_ptr<QPdfWriter> writer;
  QPagedPaintDevice* pages = nullptr;  ///< null when the target has but one page
  std::optional<PageDevice> device;    ///< while it is open
  DeviceContext context{nullptr};
  CDC dc{&context};
  bool isWhole = false;

  void Open(QPaintDevice& target) {
    device.emplace(target);
    if (device->IsOpen()) {
      context.device = &*device;
      pages = dynamic_cast<QPagedPaintDevice*>(&target);
    } else {
      device.reset();
    }
  }
};

Page::Page(QPaintDevice& target) : parts_(std::make_unique<Parts>()) {
  if (canDraw())
    parts_->Open(target);
}

Page::Page(const std::string& path, const PdfPaper& paper) : parts_(std::make_unique<Parts>()) {
  const QString name = FromUtf8(ToUtf8(path));
  const QFileInfo existing(name);
  // A pipe could make this wait for ever, and a device would be replaced by a file.
  if (!canDraw() || !isPossible(paper) || existing.fileName().isEmpty() ||
      (existing.exists() && !existing.isFile()))
    return;
  auto file = std::make_unique<QSaveFile>(name);
  if (!file->open(QIODevice::WriteOnly))
    return;
  auto writer = std::make_unique<QPdfWriter>(file.get());
  writer->setResolution(paper.pixelsPerInch);
  writer->setTitle(FromUtf8(ToUtf8(paper.title)));
  const QPageSize size(QSizeF(paper.width, paper.height), QPageSize::Millimeter);
  const QMarginsF margins(paper.margin, paper.margin, paper.margin, paper.margin);
  writer->setPageLayout(QPageLayout(size, QPageLayout::Portrait, margins, QPageLayout::Millimeter));
  parts_->file = std::move(file);
  parts_->writer = std::move(writer);
  parts_->Open(*parts_->writer);
}

Page::~Page() {
  End();
}

bool Page::IsOpen() const {
  return parts_->device.has_value();
}

CDC* Page::GetDC() const {
  return &parts_->dc;
}

CRect Page::PrintableRect() const {
  const CSize size = parts_->device ? parts_->device->Size() : CSize{};
  return {0, 0, size.cx, size.cy};
}

bool Page::NewPage() {
  if (!parts_->device || !parts_->pages)
    return false;
  parts_->device->Flush();
  return parts_->pages->newPage();
}

bool Page::End() {
  if (!parts_->device)
    return parts_->isWhole;
  parts_->context.device = nullptr;
  const bool ended = parts_->device->End();
  parts_->device.reset();
  parts_->pages = nullptr;
  parts_->writer.reset();
  parts_->isWhole = ended && (!parts_->file || parts_->file->commit());
  parts_->file.reset();
  return parts_->isWhole;
}

}  // namespace sparlow::qt
