#include <gtest/gtest.h>

#include <stdexcept>

#include "examples/host/HostOptions.h"

namespace sparlow::host {

namespace {

using Job = HostOptions::Job;
using Arguments = std::vector<const char*>;

HostOptions parse(const Arguments& arguments) {
  return ParseOptions(arguments);
}

TEST(HostOptions, ChooseTheJob) {
  EXPECT_EQ(parse({}).job, Job::measure);
  EXPECT_EQ(parse({"--synthetic", "5"}).job, Job::synthetic);
  EXPECT_EQ(parse({"--help", "--bogus"}).job, Job::help);
  const HostOptions files = parse({"a", "--rate=2.5", "-", "--", "--rate"});
  EXPECT_EQ(files.job, Job::files);
  EXPECT_EQ(files.files, (std::vector<std::string>{"a", "-", "--rate"}));
  EXPECT_EQ(files.rate, 2.5);
}

TEST(HostOptions, TakeTheirValuesEitherWay) {
  const HostOptions options = parse({"--seconds", "0.5", "--period=250", "--last", "100",
                                     "--scheme=3", "--size", "640x480", "--pictures=out dir"});
  EXPECT_EQ(options.seconds, 0.5);
  EXPECT_EQ(options.period, 250u);
  EXPECT_EQ(options.last, 100u);
  EXPECT_EQ(options.scheme, 3);
  EXPECT_EQ(options.width, 640);
  EXPECT_EQ(options.height, 480);
  EXPECT_EQ(options.pictures, "out dir");
  EXPECT_EQ(parse({"--synthetic", "100M"}).samples, 100'000'000u);
  EXPECT_EQ(parse({"--synthetic", "1.5k"}).samples, 1500u);
}

TEST(HostOptions, RefuseWhatTheyCannotTake) {
  for (const Arguments& arguments : std::initializer_list<Arguments>{
           {"--bogus"},
           {"-x"},
           {"--period"},
           {"--period", "9"},
           {"--period", "1e3"},
           {"--seconds", "0"},
           {"--seconds", "nan"},
           {"--seconds", "five"},
           {"--last", "-1"},
           {"--rate", "10"},
           {"--rate=inf", "file"},
           {"--scheme", "4"},
           {"--size", "640"},
           {"--size", "640x480x2"},
           {"--size", "1x1"},
           {"--synthetic", "0"},
           {"--synthetic", "3000M"},
           {"--synthetic", "5G"},
           {"--synthetic", "5", "file"},
           {"--pictures="},
           {"--help=me"},
       }) {
    EXPECT_THROW(parse(arguments), std::invalid_argument) << arguments.front();
  }
}

TEST(HostOptions, AreAllInTheHelp) {
  const std::string help = HelpText();
  for (const char* const name :
       {"--seconds", "--period", "--last", "--rate", "--unit", "--synthetic", "--seed", "--scheme",
        "--size", "--pictures", "--help", "--version"}) {
    EXPECT_NE(help.find("\n  " + std::string(name) + " "), std::string::npos) << name;
  }
}

}  // namespace

}  // namespace sparlow::host
