#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>

#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/qt/Application.h"
#include "tests/qt/Pixels.h"

namespace sparlow::qt {
namespace {

constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF ink = RGB(0, 0, 160);
constexpr int resolution = 288;  // four pixels a point, so that pages are whole pixels too
const PdfPaper smallPaper{.width = 60, .height = 50, .margin = 0, .pixelsPerInch = resolution};

struct PageTest : testing::Test {
  std::string path(const char* name) const { return directory.filePath(name).toStdString(); }
  /// What a tool of poppler makes of a file.
  QByteArray run(const char* tool, const QStringList& arguments) const {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished()) << tool << ": is poppler-utils installed?";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
  }
  QImage render(const std::string& file, int page = 1) const {
    const QString number = QString::number(page);
    const QByteArray ppm = run("pdftoppm", {"-r", QString::number(resolution), "-f", number, "-l",
                                            number, QString::fromStdString(file)});
    return QImage::fromData(ppm).convertToFormat(QImage::Format_RGB32);
  }

  const QTemporaryDir directory;
};

const CPen pens[] = {
    {PS_SOLID, 1, RGB(255, 0, 0)},    {PS_SOLID, 2, RGB(255, 0, 0)},  {PS_SOLID, 7, ink},
    {PS_DOT, 7, RGB(128, 0, 128)},    {PS_DASHDOT, 1, RGB(0, 0, 0)},  {PS_DASH, 2, RGB(0, 0, 0)},
    {PS_DASHDOTDOT, 3, RGB(9, 9, 0)}, {PS_SOLID, 14, RGB(9, 90, 160)}};

/// Onward, back, apart in one row or column, dots, from outside.
constexpr CPoint pieces[][2] = {
    {{230, 0}, {20, 0}},    {{20, 0}, {20, 31}},     {{20, 31}, {20, 11}},
    {{20, 11}, {20, 40}},   {{20, 40}, {71, 40}},    {{71, 40}, {130, 40}},
    {{180, 25}, {180, 25}}, {{180, 25}, {180, -10}}, {{180, -25}, {180, -31}},
    {{200, 25}, {215, 25}}, {{160, 25}, {150, 25}},  {{-100, 45}, {15, 45}}};

void drawLine(CDC& dc, CPoint from, CPoint to) {
  dc.MoveTo(from.x, from.y);
  dc.LineTo(to.x, to.y);
}

/// Lines of every pen that follow the pixels, and areas.
void drawStraight(CDC& dc) {
  int y = 20;
  for (const CPen& pen : pens) {
    dc.SelectObject(&pen);
    for (const auto& [from, to] : pieces)
      drawLine(dc, {from.x, y + from.y}, {to.x, y + to.y});
    y += 60;
  }
  dc.FillSolidRect({300, 20, 350, 60}, RGB(10, 200, 30));
  dc.Rectangle({300, 90, 350, 130});
  CRgn region;
  region.CreateRectRgn(300, 200, 350, 260);
  dc.SelectClipRgn(&region);
  dc.FillSolidRect({0, 240, 1000, 1000}, RGB(255, 255, 0));
  drawLine(dc, {250, 220}, {1000, 220});
  dc.SelectClipRgn(nullptr);
  dc.SetViewportOrg(20, 300);
  drawLine(dc, {300, 0}, {1000000, 0});
  dc.SetViewportOrg(0, 0);
}

/// Other lines, and a copy.
void drawSlanted(CDC& dc) {
  int y = 20;
  for (const CPen& each : pens) {
    const CPen pen(PS_SOLID, each.stroke().width, each.stroke().color);
    const CPen* const before = dc.SelectObject(&pen);
    drawLine(dc, {20, y}, {130, y + 40});
    dc.LineTo(150, y);
    drawLine(dc, {-20000, y + 30}, {20000, y + 20});
    dc.Ellipse({200, y, 240, y + 40});
    dc.SelectObject(before);
    y += 60;
  }
  CDC memory(CreateCompatibleDC(dc.GetSafeHdc()));
  const HBITMAP bitmap = CreateCompatibleBitmap(dc.GetSafeHdc(), 30, 30);
  memory.SelectObject(bitmap);
  memory.FillSolidRect({0, 0, 30, 30}, ink);
  memory.FillSolidRect({10, 12, 20, 22}, RGB(255, 0, 0));
  dc.BitBlt(400, 400, 24, 24, memory.GetSafeHdc(), 5, 5, SRCCOPY);
  DeleteDC(memory.GetSafeHdc());
  DeleteObject(bitmap);
}

int distance(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b))});
}

/// Each pixel of a is about one of those within reach of its place in b.
void expectPixelsIn(const QImage& b, const QImage& a, int reach, int tolerance) {
  ASSERT_EQ(a.size(), b.size());
  const int side = 2 * reach + 1;
  for (int at = 0; at < a.width() * a.height(); ++at) {
    const QPoint p(at % a.width(), at / a.width());
    bool found = false;
    for (int i = 0; !found && i < side * side; ++i) {
      const QPoint q = p + QPoint(i % side - reach, i / side - reach);
      found = b.rect().contains(q) && distance(a.pixel(p), b.pixel(q)) <= tolerance;
    }
    ASSERT_TRUE(found) << p.x() << ", " << p.y();
  }
}

TEST_F(PageTest, LinesOfAFileHaveThePlaceWidthAndColourTheyHaveInPixels) {
  Page page(path("lines.pdf"), smallPaper);
  const CRect rect = page.PrintableRect();
  EXPECT_NEAR(rect.right, 60 / 25.4 * resolution, 4);
  EXPECT_NEAR(rect.bottom, 50 / 25.4 * resolution, 4);
  EXPECT_EQ(page.GetDC()->GetDeviceCaps(LOGPIXELSY), resolution);
  drawStraight(*page.GetDC());
  ASSERT_TRUE(page.NewPage());
  page.GetDC()->SetROP2(R2_NOTXORPEN);
  drawSlanted(*page.GetDC());
  EXPECT_TRUE(page.End());

  for (const bool straight : {true, false}) {
    ImageDevice device({rect.right, rect.bottom}, 1.0, white);
    DeviceContext context(&device);
    CDC screen(&context);
    straight ? drawStraight(screen) : drawSlanted(screen);
    const QImage rendered = render(path("lines.pdf"), straight ? 1 : 2);
    QImage picture(device.Image().size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    Page onPicture(picture);
    straight ? drawStraight(*onPicture.GetDC()) : drawSlanted(*onPicture.GetDC());
    EXPECT_TRUE(onPicture.End());
    EXPECT_EQ(picture, device.Image());
    // The renderer lets an edge seep an eighth into the next pixel, and smooths slanted ones.
    expectPixelsIn(device.Image(), rendered, straight ? 0 : 1, straight ? 70 : 128);
    expectPixelsIn(rendered, device.Image(), straight ? 0 : 1, straight ? 70 : 128);
  }
}

TEST_F(PageTest, TextStaysTextAndTakesTheRoomThatWasMeasured) {
  const char* const text = "Hgjy 12.5 \xC2\xB5V";
  Page page(path("text.pdf"), smallPaper);
  CFont font;
  font.CreateFont(MulDiv(11, resolution, 72), FW_NORMAL, "Arial");
  page.GetDC()->SelectObject(&font);
  const CSize extent = page.GetDC()->GetTextExtent(text);
  page.GetDC()->TextOut(40, 30, text);
  ASSERT_TRUE(page.End());
  EXPECT_NEAR(extent.cy, 11.0 / 72 * resolution, 2);
  const QRect inked = test::Find(render(path("text.pdf")), white, true).area;
  EXPECT_NEAR(inked.left(), 40, 8);
  EXPECT_NEAR(inked.right(), 40 + extent.cx, 8);
  EXPECT_GE(inked.top(), 30);
  EXPECT_LE(inked.bottom(), 30 + extent.cy);
  const QString file = QString::fromStdString(path("text.pdf"));
  EXPECT_EQ(run("pdftotext", {file, "-"}).trimmed().toStdString(), text);
}

TEST_F(PageTest, WhatCannotBeAPageDrawsNothingAndSaysSo) {
  const std::string file = path("never.pdf");
  QImage noPicture;
  QImage picture(50, 40, QImage::Format_RGB32);
  std::vector<std::unique_ptr<Page>> pages;
  for (const PdfPaper& paper :
       {PdfPaper{.width = NAN}, PdfPaper{.width = -210}, PdfPaper{.margin = 80},
        PdfPaper{.pixelsPerInch = 0}, PdfPaper{.width = 5080, .pixelsPerInch = 2400}})
    pages.push_back(std::make_unique<Page>(file, paper));
  for (const std::string& where : {path("no/such/folder.pdf"), path("."), std::string()})
    pages.push_back(std::make_unique<Page>(where));
  pages.push_back(std::make_unique<Page>(noPicture));
  Page first(picture);
  pages.push_back(std::make_unique<Page>(picture));
  for (std::size_t i = 0; i < pages.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_TRUE(pages[i]->PrintableRect().IsRectEmpty());
    drawStraight(*pages[i]->GetDC());
    EXPECT_FALSE(pages[i]->IsOpen());
    EXPECT_FALSE(pages[i]->NewPage());
    EXPECT_FALSE(pages[i]->End());
  }
  EXPECT_TRUE(first.End());
  EXPECT_TRUE(QDir(directory.path()).isEmpty());
}

TEST_F(PageTest, AFileThatCannotBeFinishedIsToldAndAnOlderOneStays) {
  const QString folder = directory.filePath("folder");
  ASSERT_TRUE(QDir().mkdir(folder));
  Page lost((folder + "/lost.pdf").toStdString(), smallPaper);
  ASSERT_TRUE(lost.IsOpen());
  ASSERT_TRUE(QDir(folder).removeRecursively());
  EXPECT_FALSE(lost.End());

  QFile older(directory.filePath("older.pdf"));
  ASSERT_TRUE(older.open(QIODevice::WriteOnly));
  ASSERT_EQ(older.write("older"), 5);
  older.close();
  {
    const Page page(path("older.pdf"), smallPaper);
    EXPECT_EQ(older.size(), 5);
  }
  EXPECT_GT(older.size(), 500);
}

}  // namespace
}  // namespace sparlow::qt
