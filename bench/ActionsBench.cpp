// A recorded sequence of what a user does with a long record, from each action to its finished
// frame.

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "bench/Report.h"
#include "bench/Screen.h"
#include "bench/Topics.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Messages.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow::bench {

namespace {

/// One line of the record:
///   box X0 Y0 X1 Y1   a box is drawn by the mouse, in pixels of the window
///   command N         an item of the popup menu, by its code
///   scroll P          the interval goes on by P percent of its size
///   to P              the interval begins at P percent of the series
struct Action {
  std::string verb;
  std::vector<int> numbers;
};

std::vector<Action> readActions() {
  std::ifstream file(SPARLOW_BENCH_ACTIONS);
  std::vector<Action> actions;
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    Action action;
    if (!(words >> action.verb) || action.verb[0] == '#')
      continue;
    for (int number; words >> number;)
      action.numbers.push_back(number);
    const std::size_t wanted = action.verb == "box" ? 4 : 1;
    if (action.numbers.size() != wanted)
      throw std::runtime_error("bad action: " + line);
    actions.push_back(std::move(action));
  }
  if (actions.size() != 200)
    throw std::runtime_error("no 200 actions in " SPARLOW_BENCH_ACTIONS);
  return actions;
}

void perform(Screen& screen, const ViewData& series, const Action& action) {
  const HWND window = screen.View().GetSafeHwnd();
  const std::vector<int>& n = action.numbers;
  if (action.verb == "box") {
    SendMessage(window, WM_LBUTTONDOWN, 0, PackPoint({n[0], n[1]}));
    SendMessage(window, WM_MOUSEMOVE, 0, PackPoint({n[2], n[3]}));
    SendMessage(window, WM_LBUTTONUP, 0, PackPoint({n[2], n[3]}));
  } else if (action.verb == "command") {
    SendMessage(window, WM_SPARLOW_COMMAND, static_cast<WPARAM>(n[0]), 0);
  } else if (action.verb == "scroll") {
    screen.View().TheGraph().Scroll(
        static_cast<int>(0.01 * n[0] * static_cast<double>(series.GetIntervalSize())));
  } else if (action.verb == "to") {
    screen.View().TheGraph().ScrollTo(static_cast<unsigned>(0.01 * n[0] * series.GetSize()));
  } else {
    throw std::runtime_error("unknown action: " + action.verb);
  }
}

/// Fixed work of about a millisecond: what it takes beyond that is the machine's doing.
double probe() {
  const double start = NowMs();
  volatile unsigned sum = 0;
  for (unsigned i = 0; i < 500000; ++i)
    sum = sum + i;
  return NowMs() - start;
}

struct Measured {
  std::vector<double> frames, probes;
  unsigned idle = 0;  ///< actions that nothing came of
};

void replay(const std::vector<Action>& actions, ViewData& series, Measured& measured) {
  Screen screen(series);
  for (const Action& action : actions) {
    measured.probes.push_back(probe());
    const double time = screen.Frame([&] {
      if (series.Valid())
        perform(screen, series, action);
      else
        screen.View().UpdateGraph();
    });
    if (time < 0.0)
      ++measured.idle;
    else
      measured.frames.push_back(time);
    if (time > 16.0 && !Asked().once)
      std::printf("  %s %d after %u samples on show: %.2f ms\n", action.verb.c_str(),
                  action.numbers[0], series.GetIntervalSize(), time);
  }
}

}  // namespace

void RegisterActions() {
  Told([] {
    const std::vector<Action> actions = readActions();
    const unsigned rounds = Asked().once ? 1 : 5;
    Measured full, none;
    ViewData empty;
    empty.Init("empty");
    for (unsigned i = 0; i < rounds; ++i) {
      replay(actions, SharedSeries(Steps::even, Samples(100'000'000)), full);
      replay(actions, empty, none);
    }
    empty.Term();
    const std::string idle =
        full.idle ? ", " + std::to_string(full.idle) + " without a frame" : std::string();
    std::vector<double> sorted = full.frames;
    return std::vector<Line>{
        {"Action to finished frame, 200 actions on 100 million samples, median / 99 %",
         "99 % within 16 ms", MedianAnd99(full.frames) + idle, Percentile(sorted, 0.99) <= 16.0},
        {"The same on an empty graph", "told", MedianAnd99(none.frames)},
        {"A stall probe beside them", "told", MedianAnd99(full.probes)}};
  });
}

}  // namespace sparlow::bench
