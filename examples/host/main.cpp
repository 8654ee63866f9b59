#include <QtGlobal>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "examples/host/EdgeSource.h"
#include "examples/host/FileSource.h"
#include "examples/host/Session.h"
#include "examples/host/SoundSource.h"
#include "examples/host/SyntheticSource.h"
#include "examples/host/TimerSource.h"
#include "sparlow/platform/base/UiThread.h"

namespace {

using namespace sparlow;
using host::HostOptions;

constexpr int kAllWell = 0;
constexpr int kSomethingBad = 1;
constexpr int kNothingShown = 2;

volatile std::sig_atomic_t interrupts = 0;

/// Standard error is for what is wrong with the input, not for Qt's remarks on its platform.
void tellQtFailuresOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    std::fprintf(stderr, "sparlow-host: %s\n", qPrintable(text));
}

/// The first asks for an end, the second for one at once, and the third doesn't ask.
void countInterrupts() {
  struct sigaction action {};
  action.sa_handler = [](int) {
    interrupts = interrupts + 1;
    if (interrupts < 2)
      return;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
  };
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

/// A source of samples from a file; null, and the log is told, when it can't be opened.
std::unique_ptr<host::SampleSource> openFile(const std::string& file, const HostOptions& options,
                                             host::ErrorLog& log) {
  if (host::SoundSource::IsSound(file)) {
    auto sound = std::make_unique<host::SoundSource>(file, options.unit, log);
    return sound->Open() ? std::move(sound) : nullptr;
  }
  auto text = std::make_unique<host::FileSource>(file, options.rate, options.unit, log);
  return text->Open() ? std::move(text) : nullptr;
}

/// The sources that the command line asks for and that can be had.
std::vector<std::unique_ptr<host::SampleSource>> openSources(const HostOptions& options,
                                                             host::ErrorLog& log) {
  std::vector<std::unique_ptr<host::SampleSource>> sources;
  if (options.job == HostOptions::Job::measure) {
    sources.push_back(std::make_unique<host::TimerSource>(std::chrono::microseconds(options.period),
                                                          options.seconds));
  } else if (options.job == HostOptions::Job::synthetic) {
    sources.push_back(std::make_unique<host::SyntheticSource>(options.samples, options.seed));
  }
  for (const std::string& file : options.files) {
    if (auto source = openFile(file, options, log))
      sources.push_back(std::move(source));
  }
  if (options.edges) {
    std::optional<double> level = options.level;
    if (!level && options.job != HostOptions::Job::measure)
      level = 0.0;
    for (auto& source : sources)
      source = std::make_unique<host::EdgeSource>(std::move(source), level);
  }
  return sources;
}

int run(HostOptions options, qt::Application& application, host::ErrorLog& log) {
  if (!application.HasDisplay()) {
    constexpr double defaultSeconds = 6.0;
    if (options.job == HostOptions::Job::measure && !options.seconds)
      options.seconds = defaultSeconds;
    if (!options.pictures && !options.pdf)
      options.pictures = "pictures";
  }
  auto sources = openSources(options, log);
  if (sources.empty())
    return kNothingShown;
  if (options.pictures) {
    std::error_code error;
    std::filesystem::create_directories(*options.pictures, error);
    if (error) {
      log.Tell(*options.pictures + ": " + error.message());
      return kNothingShown;
    }
  }
  SourceData::nLastSamplesToDraw = options.last;
  host::Session session(application, options, log, interrupts);
  for (auto& source : sources)
    session.Add(std::move(source));
  countInterrupts();
  session.Run();
  if (!session.AnySamples() && !session.ClosedByUser())
    return kNothingShown;
  return log.Count() == 0 ? kAllWell : kSomethingBad;
}

}  // namespace

int main(int argc, char** argv) {
  host::ErrorLog log(std::cerr);
  try {
    const HostOptions options =
        host::ParseOptions({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
    if (options.job == HostOptions::Job::help) {
      std::fputs(host::HelpText().c_str(), stdout);
      return kAllWell;
    }
    if (options.job == HostOptions::Job::version) {
      std::puts("sparlow-host " SPARLOW_VERSION);
      return kAllWell;
    }
    qInstallMessageHandler(tellQtFailuresOnly);
    int onlyName = 1;  // the options are not for Qt
    qt::Application application(onlyName, argv);
    SetApplicationName("Sparlow host");
    return run(options, application, log);
  } catch (const std::exception& error) {
    log.Tell(error.what());
    return kNothingShown;
  }
}
