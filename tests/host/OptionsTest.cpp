#include <gtest/gtest.h>

#include <stdexcept>

#include "examples/host/HostOptions.h"

namespace sparlow::host {

namespace {

using Job = HostOptions::Job;
using Arguments = std::vector<const char*>;

TEST(HostOptions, ChooseTheJobAndTakeTheirValuesEitherWay) {
  const auto parse = [](const Arguments& arguments) { return ParseOptions(arguments); };
  EXPECT_EQ(parse({}).job, Job::measure);
  EXPECT_EQ(parse({"--help", "--bogus"}).job, Job::help);
  EXPECT_EQ(parse({"--synthetic", "1.5k"}).job, Job::synthetic);
  EXPECT_EQ(parse({"--synthetic", "1.5k"}).samples, 1500u);
  const HostOptions files = parse({"a", "--rate=2.5", "-", "--", "--rate"});
  EXPECT_EQ(files.job, Job::files);
  EXPECT_EQ(files.files, (std::vector<std::string>{"a", "-", "--rate"}));
  EXPECT_EQ(files.rate, 2.5);
  const HostOptions options =
      parse({"--seconds", "0.5", "--period=250", "--size", "640x480", "--pictures=out dir"});
  EXPECT_EQ(options.seconds, 0.5);
  EXPECT_EQ(options.period, 250u);
  EXPECT_EQ(options.width, 640);
  EXPECT_EQ(options.height, 480);
  EXPECT_EQ(options.pictures, "out dir");
  const HostOptions masks = parse({"--view=masks", "--mask", "-3", "--mask=average:250",
                                   "--analyse", "allan", "--paper", "100.5x80", "--dpi=300"});
  EXPECT_EQ(masks.view, ViewKind::masks);
  ASSERT_EQ(masks.masks.size(), 2u);
  EXPECT_EQ(masks.masks[0].deviations, -3);
  EXPECT_EQ(masks.masks[1].average, 250u);
  EXPECT_EQ(masks.analysis, AnalysisKind::allan);
  EXPECT_EQ(masks.paper.width, 100.5);
  EXPECT_EQ(masks.paper.pixelsPerInch, 300);
}

TEST(HostOptions, RefuseWhatTheyCannotTake) {
  for (const Arguments& arguments :
       std::initializer_list<Arguments>{{"-x"},
                                        {"--period"},
                                        {"--period", "9"},
                                        {"--seconds", "0"},
                                        {"--seconds", "nan"},
                                        {"--last", "-1"},
                                        {"--rate", "10"},  // without a file
                                        {"--rate=inf", "f"},
                                        {"--scheme", "4"},
                                        {"--size", "640"},
                                        {"--size", "640x480x2"},
                                        {"--size", "1x1"},
                                        {"--synthetic", "0"},
                                        {"--synthetic", "5G"},
                                        {"--synthetic=5", "f"},
                                        {"--level=1"},  // without edges
                                        {"--edges", "--level=nan"},
                                        {"--pictures="},
                                        {"--view", "double"},
                                        {"--mask", "mean"},  // without a view for it
                                        {"--view=masks", "--mask", "+0"},
                                        {"--view=masks", "--mask", "average:"},
                                        {"--analyse", "everything"},
                                        {"--pdf="},
                                        {"--paper", "20x200"},
                                        {"--paper", "2000x2000", "--dpi", "2400"},
                                        {"--help=me"}})
    EXPECT_THROW(ParseOptions(arguments), std::invalid_argument)
        << arguments.front() << " " << arguments.back();
}

}  // namespace

}  // namespace sparlow::host
