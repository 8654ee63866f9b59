// Stands in for libFuzzer: render_fuzz FILE... runs each file, render_fuzz COUNT that many inputs of
// random bytes.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runRandom(unsigned long count) {
  std::mt19937 random(1);
  for (unsigned long i = 0; i < count; ++i) {
    std::vector<std::uint8_t> bytes(random() % 512);
    for (std::uint8_t& byte : bytes)
      byte = static_cast<std::uint8_t>(random());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%lu inputs\n", count);
}

bool runFile(const char* path) {
  std::ifstream file(path, std::ios::binary);
  if (!file)
    return false;
  const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    char* end = nullptr;
    const unsigned long count = std::strtoul(argv[i], &end, 10);
    if (*argv[i] != '\0' && *end == '\0') {
      runRandom(count);
    } else if (!runFile(argv[i])) {
      std::fprintf(stderr, "render_fuzz: %s can't be read\n", argv[i]);
      return 2;
    }
  }
  return argc > 1 ? 0 : 2;
}
