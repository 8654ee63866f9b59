#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "examples/host/Kinds.h"
#include "examples/host/Printing.h"

namespace sparlow::host {

/// What the command line asks for.
/// Threads: a value.
struct HostOptions {
  enum class Job { measure, files, synthetic, help, version };

  Job job = Job::measure;
  std::vector<std::string> files;
  /// Samples per second of files that have one column; without it they have two.
  std::optional<double> rate;
  std::string unit;               ///< of y in files
  unsigned samples = 0;           ///< of the synthetic record
  std::uint64_t seed = 1;         ///< of the synthetic record
  unsigned period = 1000;         ///< of the timer, in microseconds
  std::optional<double> seconds;  ///< after which no more samples are taken
  bool edges = false;             ///< show crossings of a level in place of the samples
  std::optional<double> level;    ///< of the edges; the source's own without it
  ViewKind view = ViewKind::single;
  std::vector<MaskKind> masks;           ///< of the first source of a view with masks
  std::optional<AnalysisKind> analysis;  ///< of the first source, to be shown in front
  unsigned last = 0;                     ///< newest samples on show; 0 is all of them
  int scheme = 0;                        ///< number of a colour scheme
  int width = 1000;                      ///< of a graph, in pixels
  int height = 600;
  std::optional<std::string> pictures;  ///< folder for pictures
  std::optional<std::string> pdf;       ///< file to print the view in front into
  Paper paper;                          ///< of such a file
};

/// Reads the arguments that follow the program's name. Throws std::invalid_argument with a line for
/// the user.
HostOptions ParseOptions(std::span<const char* const> arguments);

/// What --help prints.
std::string HelpText();

}  // namespace sparlow::host
