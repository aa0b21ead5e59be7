// Takes a fuzz target through every file of the folders given, without a fuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  int count = 0;
  for (int folder = 1; folder < argc; ++folder) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[folder])) {
      if (!entry.is_regular_file()) continue;
      std::printf("%s\n", entry.path().c_str());
      std::fflush(stdout);  // the last line names the input that ended us
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file), {}};
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++count;
    }
  }
  return count > 0 ? 0 : 1;
}
