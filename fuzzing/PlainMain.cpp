// Runs a fuzz target over files, where there is no libFuzzer: to look into a saved input with any
// compiler and debugger.
#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t lSize);

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    std::ifstream input(argv[i], std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(input), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return 0;
}
