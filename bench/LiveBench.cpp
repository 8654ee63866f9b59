// A measurement that runs: a million samples a second, frames asked for 30 times a second.

#include <time.h>

#include <QTimer>
#include <atomic>
#include <cstdio>
#include <thread>

#include "bench/Report.h"
#include "bench/Screen.h"
#include "bench/Topics.h"

namespace sparlow::bench {

namespace {

constexpr unsigned kPerMs = 1000;

double cpuMs(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

struct Live {
  unsigned asked = 0;
  unsigned made = 0;
  std::vector<double> updates;                ///< from when it was due to the finished frame
  std::vector<double> frames;                 ///< from the wish to the finished frame
  double feeder = 0, window = 0, others = 0;  ///< load in percent of one core
  unsigned samples = 0;
};

/// A millisecond of it.
std::vector<double> someNoise() {
  std::vector<double> xs(kPerMs), ys(kPerMs);
  Wave(Steps::even).Fill(xs, ys);
  return ys;
}

/// Blocks of a millisecond, on time as far as the machine lets it.
void feed(ViewData& series, double seconds, std::atomic<double>& load) {
  const double cpuBefore = cpuMs(CLOCK_THREAD_CPUTIME_ID), start = NowMs();
  const std::vector<double> ys = someNoise();
  const double first = series.GetSize() * 1e-6;
  const auto blocks = static_cast<unsigned>(seconds * 1e3);
  for (unsigned i = 0; i < blocks; ++i) {
    while (NowMs() < start + i)
      std::this_thread::sleep_for(std::chrono::microseconds(300));
    series.InitBlockTransfer();
    series.AddUniform(first + i * 1e-3, 1e-6, ys);
    series.TermBlockTransfer();
  }
  load = 100.0 * (cpuMs(CLOCK_THREAD_CPUTIME_ID) - cpuBefore) / (NowMs() - start);
}

/// Before it, so many samples of the same kind are there, so that the pictures are alike.
Live measure(unsigned before, double seconds) {
  ViewData series;
  series.Init("live");
  series.InitDataTransfer(false);
  series.InitBlockTransfer();
  const std::vector<double> ys = someNoise();
  while (series.GetSize() < before)
    series.AddUniform(series.GetSize() * 1e-6, 1e-6, ys);
  series.TermBlockTransfer();
  Live live;
  {
    Screen screen(series);
    std::atomic<bool> done{false};
    std::atomic<double> load{0.0};
    const double cpuWindow = cpuMs(CLOCK_THREAD_CPUTIME_ID),
                 cpuAll = cpuMs(CLOCK_PROCESS_CPUTIME_ID);
    const double start = NowMs();
    std::thread feeder([&] {
      feed(series, seconds, load);
      done = true;
    });
    for (double next = start; !done; next += 1000.0 / 30.0) {
      while (NowMs() < next)
        std::this_thread::sleep_for(std::chrono::microseconds(300));
      ++live.asked;
      const double late = NowMs() - next;
      const double time = screen.Frame([&] { screen.View().UpdateGraph(); });
      if (time >= 0.0) {
        ++live.made;
        live.updates.push_back(late + time);
        live.frames.push_back(time);
      }
    }
    const double elapsed = NowMs() - start;
    live.feeder = load;
    live.window = 100.0 * (cpuMs(CLOCK_THREAD_CPUTIME_ID) - cpuWindow) / elapsed;
    const double all = 100.0 * (cpuMs(CLOCK_PROCESS_CPUTIME_ID) - cpuAll) / elapsed;
    live.others = std::max(all - live.feeder - live.window, 0.0);
    feeder.join();
    live.samples = series.GetSize() - before;
    series.TermDataTransfer();
  }
  series.Term();
  return live;
}

}  // namespace

void RegisterLive() {
  Told([] {
    const double seconds = Asked().once ? 0.3 : Asked().seconds;
    const Live live = measure(0, seconds);
    // What was there before makes no difference.
    const double shorter = std::min(seconds, 10.0);
    const Live few = measure(Samples(1'000'000), shorter);
    const Live many = measure(Samples(100'000'000), shorter);
    std::vector<double> a = few.frames, b = many.frames;
    const double ratio = Percentile(b, 0.5) / Percentile(a, 0.5);
    char text[160], load[120], same[60];
    std::snprintf(text, sizeof text, "%u samples, %u of %u frames, %s", live.samples, live.made,
                  live.asked, MedianAnd99(live.updates).c_str());
    std::snprintf(load, sizeof load, "feeding %.1f %%, window's %.1f %%, workers %.1f %% of a core",
                  live.feeder, live.window, live.others);
    std::snprintf(same, sizeof same, "%.2f", ratio);
    char work[100];
    std::snprintf(work, sizeof work, "Live, 1 million samples/s for %.0f s, 30 frames/s", seconds);
    return std::vector<Line>{{work, "told", text},
                             {"Load of each thread", "told", load},
                             {"A live frame after 100 million samples, to one after 1 million",
                              "about 1", same, ratio < 1.5}};
  });
}

}  // namespace sparlow::bench
