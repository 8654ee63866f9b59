#include "examples/host/InfoBar.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "sparlow/platform/base/Text.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::host {

namespace {

constexpr UINT kForget = WM_USER + 1;
constexpr int kDigits = 6;

struct Place {
  Readout what;
  const char* name;
  const char* caption;
  int row;
  int column;
};

constexpr Place kPlaces[] = {
    {Readout::leftX, "leftX", "Left x", 0, 0},
    {Readout::leftY, "leftY", "Left y", 1, 0},
    {Readout::rightX, "rightX", "Right x", 2, 0},
    {Readout::rightY, "rightY", "Right y", 3, 0},
    {Readout::distanceX, "distanceX", "dx", 0, 1},
    {Readout::distanceY, "distanceY", "dy", 1, 1},
    {Readout::slope, "slope", "Slope", 2, 1},
    {Readout::inverseSlope, "inverseSlope", "1 / slope", 3, 1},
    {Readout::samples, "samples", "Count", 0, 2},
    {Readout::minimum, "minimum", "Minimum", 1, 2},
    {Readout::maximum, "maximum", "Maximum", 2, 2},
    {Readout::span, "span", "Span", 3, 2},
    {Readout::mean, "mean", "Mean", 0, 3},
    {Readout::standardDeviation, "standardDeviation", "Std dev.", 1, 3},
    {Readout::allanDeviation, "allanDeviation", "Allan dev.", 2, 3},
    {Readout::drift, "drift", "Drift", 0, 4},
    {Readout::driftOfDrift, "driftOfDrift", "Drift of drift", 1, 4},
};

/// A line of text that shows when there is no room for all of it: half a unit is another unit.
class ValueLabel : public QLabel {
 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
  }
};

/// As high as its rows, and as narrow as the window: it scrolls sideways when it must.
class Rows : public QScrollArea {
 public:
  Rows() {
    setWidget(new QWidget);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  void Fit() {
    const QSize rows = widget()->minimumSizeHint();
    const bool scrolls = width() < rows.width();
    setFixedHeight(rows.height() + (scrolls ? horizontalScrollBar()->sizeHint().height() : 0));
    setFocusPolicy(scrolls ? Qt::TabFocus : Qt::NoFocus);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QScrollArea::resizeEvent(event);
    Fit();
  }
};

std::string number(double value, const std::string& unit) {
  const std::string text = FormatNumber(value, kDigits);
  return unit.empty() ? text : text + " " + ToUtf8(unit);
}

}  // namespace

InfoBar::InfoBar() : widget_(new Rows) {
  auto* const rows = static_cast<Rows*>(widget_);
  widget_->setObjectName(QStringLiteral("readouts"));
  widget_->setAccessibleName(QStringLiteral("Readouts"));
  auto* const grid = new QGridLayout(rows->widget());
  grid->setContentsMargins(8, 4, 8, 4);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(1);
  for (const Place& place : kPlaces) {
    auto* const caption = new QLabel(QString::fromLatin1(place.caption));
    auto* const value = new ValueLabel;
    caption->setForegroundRole(QPalette::PlaceholderText);
    value->setObjectName(QStringLiteral("readout.") + QLatin1String(place.name));
    value->setTextFormat(Qt::PlainText);
    // A number that grows must neither move the others nor widen the window.
    value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    value->setMinimumWidth(
        value->fontMetrics().horizontalAdvance(QStringLiteral("-123.456 e-18Hz/s")));
    grid->addWidget(caption, place.row, 2 * place.column);
    grid->addWidget(value, place.row, 2 * place.column + 1);
    grid->setColumnStretch(2 * place.column + 1, 1);
    fields_[place.what] = {place.caption, value};
  }
  clearFrom(Readout::leftX, Readout::inverseSlope);
  rows->Fit();
  CreateMessageOnly();
}

InfoBar::~InfoBar() {
  DestroyWindow();
}

void InfoBar::Clear() {
  PostMessage(GetSafeHwnd(), kForget, 0, 0);
}

LRESULT InfoBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kForget) {
    clearFrom(Readout::leftX, Readout::inverseSlope);
    return 0;
  }
  if (const auto readout = TakeReadout(message, wParam, lParam)) {
    take(*readout);
    return 0;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

void InfoBar::take(const ReadoutRecord& record) {
  switch (record.what) {
    case Readout::cursorMoves:
      if (cursorMoved)
        cursorMoved();
      break;
    case Readout::hasStatistics:
      if (!record.hasStatistics)
        clearFrom(Readout::minimum, Readout::allanDeviation);
      break;
    case Readout::samples:
      show(record.what, FormatText("%d %s", record.count, ToUtf8(record.text).c_str()));
      break;
    case Readout::drift:
    case Readout::driftOfDrift:
      show(record.what, number(record.value, record.text),
           "between the cursors " + number(record.cursorValue, record.text));
      break;
    case Readout::distanceX:
    case Readout::distanceY:
      // Without a distance no slope comes, and the one on show is of other cursors.
      if (record.value == 0) {
        const auto slope =
            record.what == Readout::distanceX ? Readout::slope : Readout::inverseSlope;
        clearFrom(slope, slope);
      }
      [[fallthrough]];
    default:
      show(record.what, number(record.value, record.text));
  }
}

void InfoBar::show(Readout what, const std::string& text, const std::string& more) {
  const auto found = fields_.find(what);
  if (found == fields_.end())
    return;
  const Field& field = found->second;
  const QString shown = QString::fromStdString(text);
  const QString hint = QString::fromStdString(more);
  if (field.label->text() == shown && field.label->statusTip() == hint)
    return;
  field.label->setText(shown);
  field.label->setStatusTip(hint);
  const QString both = more.empty() ? shown : shown + QStringLiteral(", ") + hint;
  field.label->setToolTip(both.toHtmlEscaped());
  field.label->setAccessibleName(QLatin1String(field.caption) + QLatin1Char(' ') + shown);
  field.label->setAccessibleDescription(hint);
}

void InfoBar::clearFrom(Readout first, Readout last) {
  for (const auto& [what, field] : fields_) {
    if (what >= first && what <= last)
      show(what, "-");
  }
}

}  // namespace sparlow::host
