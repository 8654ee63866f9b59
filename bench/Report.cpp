#include "bench/Report.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

namespace sparlow::bench {

namespace {

struct Ratio {
  std::string work;
  std::vector<std::pair<std::string, std::string>> pairs;
  double goal;
};

Options options;
std::vector<Ratio> ratios;
std::vector<std::function<std::vector<Line>()>> told;

/// Keeps the times of each benchmark, in ms.
class Times : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        failed = true;
        std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
      } else if (run.run_type == Run::RT_Iteration) {
        const std::string name = run.run_name.function_name;
        if (!all.contains(name))
          order.push_back(name);
        all[name].push_back(run.real_accumulated_time * 1e3 / static_cast<double>(run.iterations));
      }
    }
  }
  double median(const std::string& name) {
    const auto found = all.find(name);
    return found == all.end() ? 0.0 : Percentile(found->second, 0.5);
  }

  bool failed = false;
  std::map<std::string, std::vector<double>> all;
  std::vector<std::string> order;
};

std::string ratioText(double ratio) {
  char text[40];
  if (ratio < 0.5)
    std::snprintf(text, sizeof text, "1/%.1f", 1.0 / ratio);
  else
    std::snprintf(text, sizeof text, "%.2f", ratio);
  return text;
}

void printLine(const Line& line) {
  std::printf("| %s | %s | %s |%s\n", line.work.c_str(), line.goal.c_str(), line.measured.c_str(),
              line.met || options.once ? "" : " not reached");
}

void printTimes(Times& times) {
  std::printf("\n%-64s %14s %14s\n", "", "median", "least");
  for (const std::string& name : times.order) {
    const double median = times.median(name);  // sorts
    std::printf("%-64s %11.5f ms %11.5f ms\n", name.c_str(), median, times.all[name].front());
  }
}

void printRatio(Times& times, const Ratio& ratio) {
  double worst = 0.0;
  std::string where;
  for (const auto& [numerator, denominator] : ratio.pairs) {
    const double a = times.median(numerator), b = times.median(denominator);
    if (a > 0.0 && b > 0.0 && a / b > worst) {
      worst = a / b;
      where = numerator;
    }
  }
  if (worst == 0.0)
    return;  // left out by a filter
  const std::string at = ratio.pairs.size() > 1 ? " (" + where + ")" : "";
  const std::string goal = std::isinf(ratio.goal) ? "told" : "at most " + ratioText(ratio.goal);
  printLine({ratio.work, goal, ratioText(worst) + at, worst <= ratio.goal});
}

bool parse(int argc, char** argv, std::vector<char*>& rest) {
  for (int i = 0; i < argc; ++i) {
    if (i > 0 && std::strcmp(argv[i], "--once") == 0) {
      options.once = true;
    } else if (i > 0 && std::strncmp(argv[i], "--seconds=", 10) == 0) {
      char* end = nullptr;
      options.seconds = std::strtod(argv[i] + 10, &end);
      if (*end != '\0' || !(options.seconds > 0.0))
        return false;
    } else {
      rest.push_back(argv[i]);
    }
  }
  return true;
}

}  // namespace

const Options& Asked() {
  return options;
}

unsigned Samples(unsigned full) {
  constexpr unsigned most = 200000;
  return options.once ? std::min(full, most) : full;
}

void AtMost(std::string work, std::string numerator, std::string denominator, double goal) {
  WorstAtMost(std::move(work), {{std::move(numerator), std::move(denominator)}}, goal);
}

void Compare(std::string work, std::string numerator, std::string denominator) {
  AtMost(std::move(work), std::move(numerator), std::move(denominator), INFINITY);
}

void WorstAtMost(std::string work, std::vector<std::pair<std::string, std::string>> pairs,
                 double goal) {
  ratios.push_back({std::move(work), std::move(pairs), goal});
}

void Told(std::function<std::vector<Line>()> measure) {
  told.push_back(std::move(measure));
}

double NowMs() {
  return std::chrono::duration<double, std::milli>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

double Percentile(std::vector<double>& values, double share) {
  if (values.empty())
    return 0.0;
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1) + 0.5)];
}

std::string MedianAnd99(std::vector<double> values) {
  char text[80];
  const double median = Percentile(values, 0.5);
  std::snprintf(text, sizeof text, "%.2f / %.2f ms", median, Percentile(values, 0.99));
  return text;
}

int Main(int argc, char** argv, void (*registerAll)()) {
  std::vector<char*> arguments;
  if (!parse(argc, argv, arguments)) {
    std::fprintf(stderr, "usage: [--once] [--seconds=S] [--benchmark_...]\n");
    return 2;
  }
  // Repetitions of all benchmarks take turns, so that a slow minute of the machine meets all.
  std::vector<std::string> usual{"--benchmark_enable_random_interleaving=true"};
  if (options.once) {
    usual.emplace_back("--benchmark_min_time=0.0001");
  } else {
    usual.emplace_back("--benchmark_repetitions=9");
    usual.emplace_back("--benchmark_min_time=0.02");
  }
  for (std::string& flag : usual)
    arguments.insert(arguments.begin() + 1, flag.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
    return 2;
  registerAll();
  Times times;
  benchmark::RunSpecifiedBenchmarks(&times);
  printTimes(times);
  if (options.once)
    std::printf("\nA short shot on little data: the figures say nothing.\n");
  std::printf("\n| Work | Goal | Measured |\n|---|---|---|\n");
  for (const Ratio& ratio : ratios)
    printRatio(times, ratio);
  for (const auto& measure : told) {
    for (const Line& line : measure())
      printLine(line);
    std::fflush(stdout);
  }
  return times.failed ? 1 : 0;
}

}  // namespace sparlow::bench
