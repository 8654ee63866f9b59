#include "examples/host/HostMenu.h"

#include <QActionGroup>
#include <QMenuBar>
#include <algorithm>
#include <iterator>
#include <vector>

#include "sparlow/sparlow.h"

namespace sparlow::host {

namespace {

struct CommandItem {
  const char* text;
  const char* name;
  const char* keys;
  ViewCommand command;
};

constexpr CommandItem kCommands[] = {
    {"Zoom &in", "view.zoomIn", "+", ViewCommand::zoomIn},
    {"Zoom &out", "view.zoomOut", "-", ViewCommand::zoomOut},
    {"Zoom to &cursors", "view.zoomToCursors", "Ctrl++", ViewCommand::zoomToCursors},
    {"Zoom out &full", "view.showAll", "Ctrl+-", ViewCommand::showAll},
    {nullptr, nullptr, nullptr, {}},
    {"&Horizontal range...", "view.rangeX", "Ctrl+H", ViewCommand::rangeX},
    {"&Vertical range...", "view.rangeY", "Ctrl+V", ViewCommand::rangeY},
};

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
    QObject::connect(action, &QAction::triggered, &menu,
                     [carryOut = actions.command, item] { carryOut(item.command); });
  }
}

void addLooks(QMenu& menu, int scheme, const MenuActions& actions) {
  addChoices(menu, QStringLiteral("Colour &scheme"), QStringLiteral("view.scheme"),
             {{QStringLiteral("&0 Dark on white"), 0},
              {QStringLiteral("&1 Light on dark"), 1},
              {QStringLiteral("&2 Light on dark"), 2},
              {QStringLiteral("&3 Light on dark"), 3}},
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
  addChoices(menu, QStringLiteral("While samples come, &show"), QStringLiteral("data.newest"),
             choices, current, [carryOut = actions.command](int newest) {
               SourceData::nLastSamplesToDraw = static_cast<unsigned>(newest);
               // The start of the interval has moved along and goes back by this only.
               if (newest == 0)
                 carryOut(ViewCommand::showAll);
             });
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
  QAction* const quit = file->addAction(QStringLiteral("&Quit"));
  quit->setObjectName(QStringLiteral("file.quit"));
  quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
  QObject::connect(quit, &QAction::triggered, &bar, actions.close);

  QMenu* const view = bar.addMenu(QStringLiteral("&View"));
  addCommands(*view, actions);
  view->addSeparator();
  addLooks(*view, scheme, actions);

  QMenu* const data = bar.addMenu(QStringLiteral("&Data"));
  addStatistics(*data, actions);
  addNewest(*data, actions);
}

}  // namespace sparlow::host
