// A fuzz harness run over saved inputs, without libFuzzer: each argument is
// a file, or a directory whose files are all run, in the order of their
// names. The test suite replays the kept corpus this way in the ordinary
// build, so that a change that breaks an input found once fails there. A
// harness stops the run itself on a broken property (abort, or a
// sanitizer's report); the name printed last is the input that did it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fs = std::filesystem;

int main(int argc, char** argv) {
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            inputs.emplace_back(argv[i]);
            continue;
        }
        std::vector<fs::path> files;
        for (const fs::directory_entry& entry : fs::directory_iterator(argv[i]))
            if (entry.is_regular_file()) files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        inputs.insert(inputs.end(), files.begin(), files.end());
    }
    // An empty corpus folder would pass without a word: a moved corpus must fail.
    if (inputs.empty()) {
        std::fprintf(stderr, "usage: %s FILE_OR_DIRECTORY... (no input found)\n", argv[0]);
        return 2;
    }
    for (const fs::path& input : inputs) {
        std::ifstream in(input, std::ios::binary);
        if (!in) {
            std::fprintf(stderr, "can't read %s\n", input.c_str());
            return 2;
        }
        const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        // A buffer of the input's own size, as libFuzzer hands it over, so
        // that AddressSanitizer sees a read past its end.
        const std::unique_ptr<std::uint8_t[]> data(new std::uint8_t[bytes.size()]);
        std::copy(bytes.begin(), bytes.end(), data.get());
        std::printf("%s\n", input.c_str());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(data.get(), bytes.size());
    }
    std::printf("%zu inputs replayed\n", inputs.size());
    return 0;
}
