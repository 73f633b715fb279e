#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Band { const char* name; double shortest, longest; };  // seconds
void PrintTo(const Band& band, std::ostream* out) { *out << band.name; }

class WaveFile : public testing::TestWithParam<Band> {};

// Each effect is a 16-bit mono PCM wave at 22,050 Hz, as long as its moment
// in the game allows, its peak a little under full scale.
TEST_P(WaveFile, IsPcmOfItsLengthAndLevel) {
  std::ifstream in(std::string(DOVRIN_WAVE_DIR "/") + GetParam().name + ".wav", std::ios::binary);
  const std::vector<unsigned char> b{std::istreambuf_iterator<char>(in), {}};
  auto le = [&b](std::size_t at, int bytes) {
    std::uint32_t v = 0;
    for (int i = bytes - 1; i >= 0; --i) v = (v << 8) | b.at(at + i);
    return v;
  };
  auto id = [&b](std::size_t at) { return std::string(b.begin() + at, b.begin() + at + 4); };
  ASSERT_GE(b.size(), 44u);
  ASSERT_EQ(id(0) + id(8), "RIFFWAVE");
  EXPECT_EQ(le(4, 4), b.size() - 8);
  std::size_t at = 12, data = 0, dataBytes = 0, formats = 0;
  for (; at + 8 <= b.size(); at += 8 + le(at + 4, 4) + (le(at + 4, 4) & 1)) {
    if (id(at) == "fmt ") {  // PCM, mono, 22,050 Hz, 16 bits
      EXPECT_EQ(std::vector<std::uint32_t>({le(at + 8, 2), le(at + 10, 2), le(at + 12, 4), le(at + 22, 2)}),
                std::vector<std::uint32_t>({1, 1, 22050, 16}));
      ++formats;
    }
    if (id(at) == "data") data = at + 8, dataBytes = le(at + 4, 4);
  }
  ASSERT_EQ(formats, 1u);
  ASSERT_TRUE(data > 0 && data + dataBytes <= b.size());
  EXPECT_GE(dataBytes / 2 / 22050.0, GetParam().shortest);
  EXPECT_LE(dataBytes / 2 / 22050.0, GetParam().longest);
  int peak = 1;
  for (std::size_t i = data; i + 1 < data + dataBytes; i += 2)
    peak = std::max(peak, std::abs(static_cast<int>(static_cast<std::int16_t>(le(i, 2)))));
  EXPECT_GE(20.0 * std::log10(peak / 32768.0), -6.0);
  EXPECT_LE(20.0 * std::log10(peak / 32768.0), -0.5);
}

INSTANTIATE_TEST_SUITE_P(waves, WaveFile,
    testing::Values(Band{"101", 0.2, 0.3}, Band{"102", 0.1, 0.15}, Band{"103", 0.3, 0.45}, Band{"104", 0.08, 0.12},
                    Band{"105", 0.35, 0.5}, Band{"106", 2, 3}, Band{"107", 1, 1.5}, Band{"108", 0.2, 0.3},
                    Band{"109", 0.25, 0.35}, Band{"110", 0.5, 0.6}, Band{"111", 5, 7}, Band{"112", 0.8, 1},
                    Band{"113", 0.5, 0.6}, Band{"114", 0.15, 0.25}, Band{"115", 10, 14}, Band{"116", 0.02, 0.04},
                    Band{"117", 1.2, 1.8}, Band{"118", 0.08, 0.12}, Band{"PCluck", 2.5, 3.5}),
    [](const testing::TestParamInfo<Band>& info) { return std::string(info.param.name); });

}  // namespace
