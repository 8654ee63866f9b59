#include "examples/host/HostMenu.h"

#include <QActionGroup>
#include <QMenuBar>
#include <algorithm>
#include <iterator>
#include <vector>

#include "sparlow/sparlow.h"
#include "sparlow/ui/GraphMenu.h"

namespace sparlow::host {

namespace {

struct CommandItem {
  const char* text;
  const char* name;
  const char* keys;
  ViewCommand command;
  UINT inPopup;  // what the popup menu of a view calls it
};

constexpr CommandItem kCommands[] = {
    {"Zoom &in", "view.zoomIn", "+", ViewCommand::zoomIn, ID_VIEW_SAMPLE_ZOOM_IN},
    {"Zoom &out", "view.zoomOut", "-", ViewCommand::zoomOut, ID_VIEW_SAMPLE_ZOOM_OUT},
    {"Zoom to &cursors", "view.zoomToCursors", "Ctrl++", ViewCommand::zoomToCursors,
     ID_VIEW_CURSOR_ZOOM_IN},
    {"Zoom out &full", "view.showAll", "Ctrl+-", ViewCommand::showAll, ID_VIEW_FULL_ZOOM_OUT},
    {nullptr, nullptr, nullptr, {}, 0},
    {"&Horizontal range...", "view.rangeX", "Ctrl+H", ViewCommand::rangeX, ID_X_RANGE},
    {"&Vertical range...", "view.rangeY", "Ctrl+V", ViewCommand::rangeY, ID_Y_RANGE},
    {"Auto&zoom", "view.autoZoom", "", ViewCommand::autoZoom, ID_Y_AUTO_ZOOM},
};

/// Brings what the menu offers up to date whenever it opens. A key works whatever the menu offered
/// when it was open last; what can't be done does nothing.
void updateAtOpening(QMenu& menu, const std::function<void()>& update) {
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, update);
  QObject::connect(&menu, &QMenu::aboutToHide, &menu, [&menu] {
    for (QAction* const action : menu.actions())
      action->setEnabled(true);
  });
}

/// Takes over, for the actions that carry a command's number, what the popup menu of a view says.
void takeOver(const QMenu& menu, CMenu& popup, HWND view) {
  popup.NotifyOpening(view, 0);
  for (const MenuItem& item : popup.Items()) {
    if (item.subMenu)
      takeOver(menu, *item.subMenu, view);
    for (QAction* const action : menu.actions()) {
      if (item.id == 0 || action->data().toUInt() != item.id)
        continue;
      action->setEnabled(item.enabled);
      if (action->isCheckable())
        action->setChecked(item.checked);
    }
  }
}

struct Choice {
  QString text;
  int value;
};

/// A submenu of which one item is ticked.
void addChoices(QMenu& menu, const QString& title, const QString& name,
                const std::vector<Choice>& choices, int current,
                const std::function<void(int)>& chosen) {
  QMenu* const choice = menu.addMenu(title);
  auto* const group = new QActionGroup(choice);
  for (const auto& [text, value] : choices) {
    QAction* const action = choice->addAction(text);
    action->setObjectName(name + QLatin1Char('.') + QString::number(value));
    action->setCheckable(true);
    action->setChecked(value == current);
    group->addAction(action);
    QObject::connect(action, &QAction::triggered, choice,
                     [chosen, number = value] { chosen(number); });
  }
}

void addCommands(QMenu& menu, const MenuActions& actions) {
  for (const CommandItem& item : kCommands) {
    if (!item.text) {
      menu.addSeparator();
      continue;
    }
    QAction* const action = menu.addAction(QString::fromLatin1(item.text));
    action->setObjectName(QLatin1String(item.name));
    action->setShortcut(QKeySequence(QLatin1String(item.keys)));
    action->setData(item.inPopup);
    action->setCheckable(item.command == ViewCommand::autoZoom);
    // A key that is held must not open one dialog over the other.
    action->setAutoRepeat(item.command != ViewCommand::rangeX &&
                          item.command != ViewCommand::rangeY);
    QObject::connect(action, &QAction::triggered, &menu,
                     [carryOut = actions.command, item] { carryOut(item.command); });
  }
  updateAtOpening(menu, [&menu, view = actions.view] {
    CMenu all;
    if (all.LoadMenu(kSeriesMenuId))
      takeOver(menu, *all.GetSubMenu(0), view());
  });
}

void addLooks(QMenu& menu, int scheme, const MenuActions& actions) {
  addChoices(menu, QStringLiteral("Colour &scheme"), QStringLiteral("view.scheme"),
             {{QStringLiteral("&Grey on white"), 0},
              {QStringLiteral("Yellow on &blue"), 1},
              {QStringLiteral("&Yellow on grey"), 2},
              {QStringLiteral("G&reen on black"), 3}},
             scheme, actions.takeScheme);
  addChoices(menu, QStringLiteral("Cursor &markers"), QStringLiteral("view.marker"),
             {{QStringLiteral("&Rectangle"), 0},
              {QStringLiteral("&Circle"), 1},
              {QStringLiteral("Cr&oss"), 2}},
             std::clamp(Cursor::GetStyle(), 0, 2), [repaint = actions.repaint](int style) {
               Cursor::SetStyle(style);
               repaint();
             });
  // Packed: the line's style and the point's.
  addChoices(menu, QStringLiteral("&Draw few samples as"), QStringLiteral("view.draw"),
             {{QStringLiteral("&Line"), 0x100},
              {QStringLiteral("&Points"), 0x001},
              {QStringLiteral("Line &and points"), 0x101}},
             ViewData::GetDrawStyle(), [repaint = actions.repaint](int style) {
               ViewData::SetDrawStyle(style);
               repaint();
             });
}

void addNewest(QMenu& menu, const MenuActions& actions) {
  std::vector<Choice> choices{{QStringLiteral("&All samples"), 0},
                              {QStringLiteral("Newest 1,&000"), 1000},
                              {QStringLiteral("Newest &10,000"), 10'000},
                              {QStringLiteral("Newest 100,000 (&k)"), 100'000}};
  const auto current = static_cast<int>(SourceData::nLastSamplesToDraw.load());
  const bool listed = std::any_of(choices.begin(), choices.end(),
                                  [&](const Choice& choice) { return choice.value == current; });
  if (!listed)
    choices.push_back({QStringLiteral("&Newest %1").arg(current), current});
  addChoices(menu, QStringLiteral("While samples come, s&how"), QStringLiteral("data.newest"),
             choices, current,
             [take = actions.takeNewest](int newest) { take(static_cast<unsigned>(newest)); });
}

void addFeed(QMenu& menu, const MenuActions& actions) {
  QAction* const stop = menu.addAction(QStringLiteral("&Stop"));
  stop->setObjectName(QStringLiteral("data.stop"));
  stop->setShortcut(QKeySequence(QStringLiteral("Ctrl+.")));
  QObject::connect(stop, &QAction::triggered, &menu, actions.stop);
  updateAtOpening(menu, [stop, feeding = actions.feeding] { stop->setEnabled(feeding()); });

  QAction* const mouse = menu.addAction(QStringLiteral("Use the &mouse while samples come"));
  mouse->setObjectName(QStringLiteral("data.mouse"));
  mouse->setCheckable(true);
  mouse->setChecked(!Graph::RestrictGraphOperationInRealTime);
  QObject::connect(mouse, &QAction::toggled, &menu,
                   [](bool use) { Graph::RestrictGraphOperationInRealTime = !use; });
}

void addStatistics(QMenu& menu, const MenuActions& actions) {
  QAction* const between = menu.addAction(QStringLiteral("Statistics &between cursors"));
  between->setObjectName(QStringLiteral("data.betweenCursors"));
  between->setShortcut(QKeySequence(QStringLiteral("Ctrl+B")));
  between->setCheckable(true);
  between->setChecked(SourceData::AnalyzeDataBetweenCursors);
  QObject::connect(between, &QAction::toggled, &menu,
                   [recalculate = actions.recalculate](bool cursors) {
                     SourceData::AnalyzeDataBetweenCursors = cursors;
                     recalculate();
                   });
}

}  // namespace

void FillMenuBar(QMenuBar& bar, int scheme, const MenuActions& actions) {
  QMenu* const file = bar.addMenu(QStringLiteral("&File"));
  const auto addToFile = [&](const char* text, const char* name, const char* keys,
                             const std::function<void()>& act) {
    QAction* const action = file->addAction(QLatin1String(text));
    action->setObjectName(QLatin1String(name));
    action->setShortcut(QKeySequence(QLatin1String(keys)));
    action->setAutoRepeat(false);
    QObject::connect(action, &QAction::triggered, &bar, act);
  };
  addToFile("&Print...", "file.print", "Ctrl+P", actions.print);
  addToFile("Export P&DF...", "file.exportPdf", "Ctrl+E", actions.exportPdf);
  file->addSeparator();
  addToFile("&Quit", "file.quit", "Ctrl+Q", actions.close);

  QMenu* const view = bar.addMenu(QStringLiteral("&View"));
  addCommands(*view, actions);
  view->addSeparator();
  addLooks(*view, scheme, actions);

  QMenu* const data = bar.addMenu(QStringLiteral("&Data"));
  addFeed(*data, actions);
  addNewest(*data, actions);
  data->addSeparator();
  addStatistics(*data, actions);
}

}  // namespace sparlow::host
