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
  const HostOptions masks =
      parse({"--mask", "-3", "--view=masks", "--mask=average:250", "--paper", "100.5x80"});
  ASSERT_EQ(masks.masks.size(), 2u);
  EXPECT_EQ(masks.masks[0].deviations, -3);
  EXPECT_EQ(masks.masks[1].average, 250u);
  EXPECT_EQ(masks.paper.width, 100.5);
}

TEST(HostOptions, RefuseWhatTheyCannotTake) {
  const Arguments cases[] = {{"-x"},
                             {"--period"},
                             {"--period", "9"},
                             {"--seconds", "nan"},
                             {"--rate", "10"},  // without a file
                             {"--rate=inf", "f"},
                             {"--size", "640x480x2"},
                             {"--synthetic", "5G"},
                             {"--synthetic=5", "f"},
                             {"--level=1"},  // without edges
                             {"--pictures="},
                             {"--view", "double"},
                             {"--mask", "mean"},  // without a view for it
                             {"--view=masks", "--mask", "average:"},
                             {"--paper", "2000x2000", "--dpi", "2400"},
                             {"--help=me"}};
  for (const Arguments& arguments : cases)
    EXPECT_THROW(ParseOptions(arguments), std::invalid_argument)
        << arguments.front() << " " << arguments.back();
}

}  // namespace

}  // namespace sparlow::host
