#include <malloc.h>

#include "bench/Report.h"
#include "bench/Topics.h"

namespace {

void registerAll() {
  using namespace sparlow::bench;
  RegisterMemory();
  RegisterRender();
  RegisterAppend();
  RegisterStatistics();
#ifdef SPARLOW_BENCH_GRAPHS
  RegisterCursor();
#endif
}

}  // namespace

int main(int argc, char** argv) {
#ifdef __GLIBC__
  // Freed memory stays with the process, so that who takes it again finds it touched.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
#endif
  return sparlow::bench::Main(argc, argv, registerAll);
}
