#include "examples/host/HostOptions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace sparlow::host {

namespace {

using Job = HostOptions::Job;

constexpr unsigned kMaxSamples = 2147483647;  // what one series holds

[[noreturn]] void refuse(std::string_view option, std::string_view value, std::string_view wanted) {
  throw std::invalid_argument(std::string(option) + ": '" + std::string(value) + "' is not " +
                              std::string(wanted));
}

template <class Number>
bool parseWhole(std::string_view text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

unsigned count(std::string_view option, std::string_view text, unsigned least, unsigned most,
               std::string_view wanted) {
  unsigned number = 0;
  if (!parseWhole(text, number) || number < least || number > most)
    refuse(option, text, wanted);
  return number;
}

double positive(std::string_view option, std::string_view text, double most,
                std::string_view wanted) {
  double number = 0;
  if (!parseWhole(text, number) || !(number > 0) || number > most)
    refuse(option, text, wanted);
  return number;
}

void takeSynthetic(HostOptions& options, std::string_view name, std::string_view text) {
  std::string_view digits = text;
  double factor = 1;
  if (digits.ends_with('k') || digits.ends_with('M')) {
    factor = digits.ends_with('k') ? 1e3 : 1e6;
    digits.remove_suffix(1);
  }
  double number = 0;
  if (!parseWhole(digits, number) || !(number * factor >= 1) || number * factor > kMaxSamples)
    refuse(name, text, "a number of samples from 1 to 2147483647, such as 500k or 100M");
  options.samples = static_cast<unsigned>(number * factor);
  options.job = Job::synthetic;
}

/// Two numbers with an x between.
template <class Number>
bool parsePair(std::string_view text, Number& first, Number& second) {
  const std::size_t cross = text.find('x');
  return cross != std::string_view::npos && parseWhole(text.substr(0, cross), first) &&
         parseWhole(text.substr(cross + 1), second);
}

void takeSize(HostOptions& options, std::string_view name, std::string_view text) {
  const auto fits = [](int length) { return length >= 100 && length <= 10000; };
  if (!parsePair(text, options.width, options.height) || !fits(options.width) ||
      !fits(options.height))
    refuse(name, text, "a size from 100x100 to 10000x10000, such as 1000x600");
}

void takePaper(HostOptions& options, std::string_view name, std::string_view text) {
  const auto fits = [](double length) { return length >= 30 && length <= 5080; };
  Paper& paper = options.paper;
  if (!parsePair(text, paper.width, paper.height) || !fits(paper.width) || !fits(paper.height))
    refuse(name, text, "a size from 30x30 to 5080x5080 millimetres, such as 297x210");
}

template <class Kind>
struct Word {
  std::string_view text;
  Kind kind;
};
constexpr Word<ViewKind> kViews[] = {
    {"single", ViewKind::single}, {"multi", ViewKind::multi}, {"masks", ViewKind::masks}};
constexpr Word<AnalysisKind> kAnalyses[] = {{"derivative", AnalysisKind::derivative},
                                            {"histogram", AnalysisKind::histogram},
                                            {"allan", AnalysisKind::allan}};

template <class Kind, std::size_t count>
Kind choose(const Word<Kind> (&words)[count], std::string_view name, std::string_view text) {
  std::string wanted = "one of";
  for (const auto& word : words) {
    if (word.text == text)
      return word.kind;
    wanted += " " + std::string(word.text);
  }
  refuse(name, text, wanted);
}

void takeMask(HostOptions& options, std::string_view name, std::string_view text) {
  constexpr std::string_view average = "average:";
  constexpr int most = 9;
  MaskKind mask;
  bool good = text == "mean";
  if (text.starts_with(average)) {
    good = parseWhole(text.substr(average.size()), mask.average) && mask.average > 0 &&
           mask.average <= kMaxSamples;
  } else if (text.starts_with('+') || text.starts_with('-')) {
    good = parseWhole(text.substr(1), mask.deviations) && mask.deviations > 0 &&
           mask.deviations <= most;
    if (text[0] == '-')
      mask.deviations = -mask.deviations;
  }
  if (!good)
    refuse(name, text, "mean, +1 to +9, -1 to -9 or average:N, such as average:1000");
  options.masks.push_back(mask);
}

struct Option {
  std::string_view name;
  std::string_view value;  // what it is called in the help; empty for an option without value
  std::string_view help;
  void (*take)(HostOptions& options, std::string_view name, std::string_view value);
};

constexpr Option kOptions[] = {
    {"--seconds", "S", "take samples for S seconds; without a display a measurement takes 6",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.seconds = positive(n, v, 1e9, "a number of seconds above 0");
     }},
    {"--period", "US", "measure a timer of US microseconds, 10 to 60000000 (1000)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.period = count(n, v, 10, 60'000'000, "a whole number of microseconds, 10 to 60000000");
     }},
    {"--last", "N", "while samples come in, show the newest N of them only",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.last = count(n, v, 1, kMaxSamples, "a whole number from 1 to 2147483647");
     }},
    {"--rate", "HZ", "files of text have one column, of HZ samples in a second",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.rate = positive(n, v, 1e12, "a number of samples per second above 0");
     }},
    {"--unit", "UNIT", "unit of the values in files, such as V; of sound FS, full scale",
     [](HostOptions& o, std::string_view, std::string_view v) { o.unit = v; }},
    {"--edges", "", "show where delays cross their median, values zero; 8192 edges at most",
     [](HostOptions& o, std::string_view, std::string_view) { o.edges = true; }},
    {"--level", "V", "show where they cross V in place of that, with --edges",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       double level = 0;
       if (!parseWhole(v, level) || !std::isfinite(level))
         refuse(n, v, "a number");
       o.level = level;
     }},
    {"--synthetic", "N", "make a record of N samples, such as 500k or 100M", takeSynthetic},
    {"--seed", "N", "choose another synthetic record (1)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       if (!parseWhole(v, o.seed))
         refuse(n, v, "a whole number from 0 on");
     }},
    {"--view", "KIND",
     "single: one graph a source; multi: 6 in one; masks: the same with masks (single)",
     [](HostOptions& o, std::string_view n, std::string_view v) { o.view = choose(kViews, n, v); }},
    {"--mask", "KIND",
     "with --view masks, add one: mean, +N or -N std. deviations, average:N; 6 at most", takeMask},
    {"--analyse", "KIND",
     "show the derivative, histogram or allan deviation of the first source in front",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.analysis = choose(kAnalyses, n, v);
     }},
    {"--scheme", "0..3",
     "0 grey on white, 1 yellow on blue, 2 yellow on grey, 3 green on black (0)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.scheme = static_cast<int>(count(n, v, 0, 3, "a number from 0 to 3"));
     }},
    {"--size", "WxH", "size of a graph in pixels (1000x600)", takeSize},
    {"--pictures", "DIR", "leave PNG pictures in DIR; always without a display or --pdf (pictures)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       if (v.empty())
         refuse(n, v, "a folder");
       o.pictures = v;
     }},
    {"--pdf", "FILE", "print the view in front into FILE when all is done",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       if (v.empty())
         refuse(n, v, "a file");
       o.pdf = v;
     }},
    {"--paper", "WxH", "size of that page in millimetres (297x210)", takePaper},
    {"--dpi", "N", "resolution of that page, 72 to 2400 pixels per inch (600)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.paper.pixelsPerInch =
           static_cast<int>(count(n, v, 72, 2400, "a whole number from 72 to 2400"));
     }},
    {"--help", "", "print this and end",
     [](HostOptions& o, std::string_view, std::string_view) { o.job = Job::help; }},
    {"--version", "", "print the version and end",
     [](HostOptions& o, std::string_view, std::string_view) { o.job = Job::version; }},
};

const Option& findOption(std::string_view name) {
  for (const Option& option : kOptions) {
    if (option.name == name)
      return option;
  }
  throw std::invalid_argument("unknown option '" + std::string(name) + "'; --help lists all");
}

/// Takes the option at arguments[at]; gives the place of the last argument that it used.
std::size_t takeOption(HostOptions& options, std::span<const char* const> arguments,
                       std::size_t at) {
  const std::string_view argument = arguments[at];
  const std::size_t equals = argument.find('=');
  const Option& option = findOption(argument.substr(0, equals));
  std::string_view value;
  if (option.value.empty()) {
    if (equals != std::string_view::npos)
      throw std::invalid_argument(std::string(option.name) + " takes no value");
  } else if (equals != std::string_view::npos) {
    value = argument.substr(equals + 1);
  } else if (at + 1 < arguments.size()) {
    value = arguments[++at];
  } else {
    throw std::invalid_argument(std::string(option.name) + " needs a value");
  }
  option.take(options, option.name, value);
  return at;
}

}  // namespace

HostOptions ParseOptions(std::span<const char* const> arguments) {
  HostOptions options;
  bool filesOnly = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (filesOnly || argument.size() < 2 || argument[0] != '-')
      options.files.emplace_back(argument);
    else if (argument == "--")
      filesOnly = true;
    else
      i = takeOption(options, arguments, i);
    if (options.job == Job::help || options.job == Job::version)
      return options;
  }
  if (!options.files.empty() && options.job == Job::synthetic)
    throw std::invalid_argument("--synthetic and files exclude each other");
  if (options.level && !options.edges)
    throw std::invalid_argument("--level needs --edges");
  if (!options.masks.empty() && options.view != ViewKind::masks)
    throw std::invalid_argument("--mask needs --view masks");
  if (options.masks.size() > 6)
    throw std::invalid_argument("there can be 6 masks at most");
  constexpr double millimetres = 25.4;
  constexpr double mostPixels = 30000;
  if (std::max(options.paper.width, options.paper.height) / millimetres *
          options.paper.pixelsPerInch >
      mostPixels)
    throw std::invalid_argument("--paper and --dpi give more than 30000 pixels");
  if (!options.files.empty())
    options.job = Job::files;
  else if (options.rate)
    throw std::invalid_argument("--rate needs a file");
  return options;
}

std::string HelpText() {
  std::string text =
      "usage: sparlow-host [OPTION...]            measure how late a timer wakes this machine\n"
      "       sparlow-host [OPTION...] FILE...    show recorded data\n"
      "       sparlow-host --synthetic N          show a long made-up record\n"
      "\n"
      "A window stays until it is closed, whatever else ends. Without a display there is none, "
      "and\n"
      "the program ends when all samples are there.\n"
      "\n"
      "A file of text has a line for each sample: x and y, or y alone with --rate. Blanks, tabs,\n"
      "a comma or a semicolon separate them, so decimals need a point; further columns are\n"
      "ignored. Empty lines, lines that begin with #, % or ; and words above the first sample are\n"
      "skipped, and so are samples that are not finite or whose x goes back. A line that is no\n"
      "sample ends its file; what came before is shown. The file - is standard input. Of a sound\n"
      "file (.wav, .flac, .ogg and others) the first channel is shown.\n"
      "\n";
  for (const Option& option : kOptions) {
    std::string left = "  " + std::string(option.name) + " " + std::string(option.value);
    left.resize(18, ' ');
    text += left + std::string(option.help) + "\n";
  }
  return text +
         "\n"
         "Exit status: 0 when all was well; 1 when something was shown but a file, a sample or a\n"
         "picture was bad; 2 when nothing could be shown, and for a bad option.\n";
}

}  // namespace sparlow::host
