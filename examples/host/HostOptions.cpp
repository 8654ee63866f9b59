#include "examples/host/HostOptions.h"

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

void takeSize(HostOptions& options, std::string_view name, std::string_view text) {
  constexpr std::string_view wanted = "a size from 100x100 to 10000x10000, such as 1000x600";
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos)
    refuse(name, text, wanted);
  int& width = options.width;
  int& height = options.height;
  if (!parseWhole(text.substr(0, cross), width) || !parseWhole(text.substr(cross + 1), height) ||
      width < 100 || width > 10000 || height < 100 || height > 10000)
    refuse(name, text, wanted);
}

struct Option {
  std::string_view name;
  std::string_view value;  // what it is called in the help; empty for an option without value
  std::string_view help;
  void (*take)(HostOptions& options, std::string_view name, std::string_view value);
};

constexpr Option kOptions[] = {
    {"--seconds", "S", "end after S seconds; without a display a measurement takes 6",
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
    {"--edges", "", "show edges: where delays cross their median, values zero; 8192 at most",
     [](HostOptions& o, std::string_view, std::string_view) { o.edges = true; }},
    {"--synthetic", "N", "make a record of N samples, such as 500k or 100M", takeSynthetic},
    {"--seed", "N", "choose another synthetic record (1)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       if (!parseWhole(v, o.seed))
         refuse(n, v, "a whole number from 0 on");
     }},
    {"--scheme", "0..3", "colours: 0 dark on white, 1 to 3 light on dark (0)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       o.scheme = static_cast<int>(count(n, v, 0, 3, "a number from 0 to 3"));
     }},
    {"--size", "WxH", "size of a graph in pixels (1000x600)", takeSize},
    {"--pictures", "DIR", "leave PNG pictures in DIR; without a display always (pictures)",
     [](HostOptions& o, std::string_view n, std::string_view v) {
       if (v.empty())
         refuse(n, v, "a folder");
       o.pictures = v;
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
      "A file of text has a line for each sample: x and y, or y alone with --rate. Blanks, tabs,\n"
      "a comma or a semicolon separate them; further columns are ignored. Empty lines and lines\n"
      "that begin with #, % or ; are skipped, and so are samples that are not finite or whose x\n"
      "goes back. A line that is no sample ends its file; what came before is shown. Of a sound\n"
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
