#include "tests/qt/QtEnvironment.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  sparlow::test::StartApp();
  const int status = RUN_ALL_TESTS();
  sparlow::test::app.reset();
  return status;
}
