#include "examples/host/SeriesMenu.h"

#include <QMenuBar>

namespace sparlow::host {

namespace {

constexpr unsigned kWindows[] = {10, 100, 1000, 10'000};

template <class Act>
QAction* add(QMenu& menu, const QString& text, const QString& name, const Act& act,
             const char* keys = "") {
  QAction* const action = menu.addAction(text);
  action->setObjectName(name);
  action->setShortcut(QKeySequence(QLatin1String(keys)));
  action->setAutoRepeat(false);
  QObject::connect(action, &QAction::triggered, &menu, act);
  return action;
}

/// "1" to "9" pick the first ones by key.
QString sourceText(std::size_t number, const std::string& name) {
  QString text = QString::fromStdString(name).replace('&', QStringLiteral("&&"));
  return number < 10 ? QStringLiteral("&%1 ").arg(number) + text : text;
}

/// The sources as they are whenever the menu opens.
void addSources(QMenu& menu, const SeriesActions& actions) {
  QMenu* const sources = menu.addMenu(QStringLiteral("&Sources"));
  sources->setObjectName(QStringLiteral("series.sources"));
  const auto fill = [sources, list = actions.sources, put = actions.put] {
    sources->clear();
    const std::vector<SourceItem> items = list();
    for (std::size_t i = 0; i < items.size(); ++i) {
      QAction* const action = sources->addAction(sourceText(i + 1, items[i].name));
      action->setObjectName(QStringLiteral("series.source.%1").arg(i + 1));
      action->setCheckable(true);
      action->setChecked(items[i].shown);
      action->setEnabled(items[i].changes);
      QObject::connect(action, &QAction::triggered, sources, [put, i](bool on) { put(i, on); });
    }
  };
  QObject::connect(sources, &QMenu::aboutToShow, sources, fill);
}

void addAverages(QMenu& menu, const QString& title, const QString& name,
                 const std::function<void(unsigned)>& chosen) {
  QMenu* const averages = menu.addMenu(title);
  int key = 0;
  for (const unsigned samples : kWindows)
    add(*averages, QStringLiteral("&%1: over %L2 samples").arg(++key).arg(samples),
        name + QStringLiteral(".%1").arg(samples), [chosen, samples] { chosen(samples); });
}

void addSeries(QMenuBar& bar, const SeriesActions& actions) {
  QMenu* const menu = bar.addMenu(QStringLiteral("&Series"));
  addSources(*menu, actions);
  addAverages(*menu, QStringLiteral("Add moving &average"), QStringLiteral("series.average"),
              actions.addAverage);
  menu->addSeparator();
  add(*menu, QStringLiteral("&Remove active"), QStringLiteral("series.removeActive"),
      actions.removeActive, "Del");
}

void addMasks(QMenuBar& bar, const SeriesActions& actions) {
  QMenu* const menu = bar.addMenu(QStringLiteral("&Masks"));
  addAverages(*menu, QStringLiteral("Add moving &average"), QStringLiteral("masks.average"),
              [addMask = actions.addMask](unsigned samples) { addMask({.average = samples}); });
  const auto addLine = [&](const char* text, const char* name, int deviations) {
    add(*menu, QLatin1String(text), QLatin1String(name),
        [addMask = actions.addMask, deviations] { addMask({.deviations = deviations}); });
  };
  addLine("Add &mean", "masks.mean", 0);
  addLine("Add mean &+ 3 standard deviations", "masks.above", 3);
  addLine("Add mean &- 3 standard deviations", "masks.below", -3);
  menu->addSeparator();
  QAction* const last = add(*menu, QStringLiteral("Remove &last"),
                            QStringLiteral("masks.removeLast"), actions.removeLastMask);
  QAction* const all = add(*menu, QStringLiteral("&Remove all"), QStringLiteral("masks.removeAll"),
                           actions.removeAllMasks);
  QObject::connect(menu, &QMenu::aboutToShow, menu, [last, all, anyMask = actions.anyMask] {
    last->setEnabled(anyMask());
    all->setEnabled(anyMask());
  });
}

void addAnalyses(QMenuBar& bar, const SeriesActions& actions) {
  QMenu* const menu = bar.addMenu(QStringLiteral("&Analyse"));
  const auto addKind = [&](const char* text, const char* name, AnalysisKind kind) {
    add(*menu, QLatin1String(text), QLatin1String(name),
        [analyse = actions.analyse, kind] { analyse(kind); });
  };
  addKind("&Derivative", "analyse.derivative", AnalysisKind::derivative);
  addKind("&Histogram", "analyse.histogram", AnalysisKind::histogram);
  addKind("&Allan deviation", "analyse.allan", AnalysisKind::allan);
  menu->addSeparator();
  add(*menu, QStringLiteral("&Recalculate"), QStringLiteral("analyse.recalculate"),
      actions.recalculate, "F5");
}

}  // namespace

void AddSeriesMenus(QMenuBar& bar, ViewKind kind, const SeriesActions& actions) {
  if (kind != ViewKind::single)
    addSeries(bar, actions);
  if (kind == ViewKind::masks)
    addMasks(bar, actions);
  addAnalyses(bar, actions);
}

}  // namespace sparlow::host
