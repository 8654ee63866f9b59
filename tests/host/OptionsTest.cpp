#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "examples/host/HostOptions.h"

namespace sparlow::host {

namespace {

using Job = HostOptions::Job;
using Arguments = std::vector<const char*>;

HostOptions parse(const Arguments& arguments) {
  return ParseOptions(arguments);
}

TEST(HostOptions, ChooseTheJobAndTakeTheirValuesEitherWay) {
  EXPECT_EQ(parse({}).job, Job::measure);
  EXPECT_EQ(parse({"--help", "--bogus"}).job, Job::help);
  EXPECT_EQ(parse({"--synthetic", "1.5k"}).job, Job::synthetic);
  EXPECT_EQ(parse({"--synthetic", "1.5k"}).samples, 1500u);
  EXPECT_EQ(parse({"--synthetic", "100M"}).samples, 100'000'000u);
  const HostOptions files = parse({"a", "--rate=2.5", "-", "--", "--rate"});
  EXPECT_EQ(files.job, Job::files);
  EXPECT_EQ(files.files, (std::vector<std::string>{"a", "-", "--rate"}));
  EXPECT_EQ(files.rate, 2.5);
  const HostOptions options = parse({"--seconds", "0.5", "--period=250", "--last", "100", "--edges",
                                     "--scheme=3", "--size", "640x480", "--pictures=out dir"});
  EXPECT_EQ(options.seconds, 0.5);
  EXPECT_EQ(options.period, 250u);
  EXPECT_EQ(options.last, 100u);
  EXPECT_EQ(options.scheme, 3);
  EXPECT_TRUE(options.edges);
  EXPECT_FALSE(files.edges);
  EXPECT_EQ(options.width, 640);
  EXPECT_EQ(options.height, 480);
  EXPECT_EQ(options.pictures, "out dir");
}

TEST(HostOptions, RefuseWhatTheyCannotTake) {
  const std::pair<const char*, std::vector<const char*>> refused[] = {
      {"--period", {"9", "1e3"}},
      {"--seconds", {"0", "nan"}},
      {"--last", {"-1"}},
      {"--rate", {"10"}},  // without a file
      {"--scheme", {"4"}},
      {"--size", {"640", "640x480x2", "1x1"}},
      {"--synthetic", {"0", "3000M", "5G"}},
  };
  for (const auto& [option, values] : refused) {
    EXPECT_THROW(parse({option}), std::invalid_argument) << option;
    for (const char* const value : values)
      EXPECT_THROW(parse({option, value}), std::invalid_argument) << option << " " << value;
  }
  for (const Arguments& arguments : std::initializer_list<Arguments>{
           {"-x"}, {"--pictures="}, {"--help=me"}, {"--rate=inf", "f"}, {"--synthetic=5", "f"}})
    EXPECT_THROW(parse(arguments), std::invalid_argument) << arguments.front();
}

}  // namespace

}  // namespace sparlow::host
