// The six sounds that ship with the game, read from their files as any player would read them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "voices/sounds.h"

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> files = {"carte_er.wav", "carte_ok.wav", "carte_ga.wav",
                                        "carte_pe.wav", "carte_es.wav", "carte_hl.wav"};

std::string bytes_of(const fs::path &file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::uint32_t number(const std::string &bytes, std::size_t offset, int size) {
  std::uint32_t value = 0;
  for (int i = size; i-- > 0;) {
    value = value << 8 | static_cast<std::uint8_t>(bytes.at(offset + static_cast<std::size_t>(i)));
  }
  return value;
}

std::vector<int> samples_of(const std::string &bytes) {
  std::vector<int> samples;
  for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
    samples.push_back(static_cast<std::int16_t>(number(bytes, i, 2)));
  }
  return samples;
}

std::vector<int> samples_of_file(const std::string &name) {
  return samples_of(bytes_of(fs::path(RESOURCES) / name));
}

int peak_of(const std::vector<int> &samples) {
  int peak = 0;
  for (const int sample : samples) peak = std::max(peak, std::abs(sample));
  return peak;
}

class Voice : public testing::TestWithParam<std::string> {
 protected:
  const std::string bytes = bytes_of(fs::path(RESOURCES) / GetParam());
};

TEST_P(Voice, IsSixteenBitMonoPcmOf44100Hertz) {
  ASSERT_GE(bytes.size(), 44U);
  EXPECT_EQ(bytes.substr(0, 4), "RIFF");
  EXPECT_EQ(number(bytes, 4, 4), bytes.size() - 8);
  EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
  EXPECT_EQ(number(bytes, 16, 4), 16U);
  EXPECT_EQ(number(bytes, 20, 2), 1U) << "PCM";
  EXPECT_EQ(number(bytes, 22, 2), 1U) << "channels";
  EXPECT_EQ(number(bytes, 24, 4), 44100U);
  EXPECT_EQ(number(bytes, 28, 4), 88200U) << "bytes a second";
  EXPECT_EQ(number(bytes, 32, 2), 2U) << "bytes a sample";
  EXPECT_EQ(number(bytes, 34, 2), 16U) << "bits";
  EXPECT_EQ(bytes.substr(36, 4), "data");
  EXPECT_EQ(number(bytes, 40, 4), bytes.size() - 44);
}

TEST_P(Voice, LastsLessThanOneAndAHalfSeconds) {
  const std::size_t count = samples_of(bytes).size();
  EXPECT_GT(count, 44100U / 20);
  EXPECT_LT(count, 44100U * 3 / 2);
}

TEST_P(Voice, StaysThreeDecibelsBelowFullScale) {
  const int peak = peak_of(samples_of(bytes));
  EXPECT_LE(peak, std::lround(32767 * std::pow(10.0, -3.0 / 20)));
  EXPECT_GT(peak, 2000) << "not to be heard";
}

// A click is a step: the ends stand at 0 and leave it gently, at most 1/64 of full scale a sample.
TEST_P(Voice, BeginsAndEndsWithoutAClick) {
  const std::vector<int> samples = samples_of(bytes);
  ASSERT_GE(samples.size(), 16U);
  EXPECT_EQ(samples.front(), 0);
  EXPECT_EQ(samples.back(), 0);
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_LE(std::abs(samples[i + 1] - samples[i]), 512) << "sample " << i;
    const std::size_t last = samples.size() - 1 - i;
    EXPECT_LE(std::abs(samples[last] - samples[last - 1]), 512) << "sample " << last;
  }
}

TEST_P(Voice, CarriesNoConstantOffset) {
  const std::vector<int> samples = samples_of(bytes);
  double sum = 0;
  for (const int sample : samples) sum += sample;
  EXPECT_LT(std::abs(sum / static_cast<double>(samples.size())), 100);
}

TEST_P(Voice, IsWhatTheAtelierComposesToday) {
  const fs::path folder = fs::path(testing::TempDir()) / ("voices-" + std::to_string(std::random_device()()));
  fs::create_directories(folder);
  atelier::écrire_sons(folder);
  EXPECT_TRUE(bytes_of(folder / GetParam()) == bytes);
  fs::remove_all(folder);
}

INSTANTIATE_TEST_SUITE_P(Six, Voice, testing::ValuesIn(files), [](const auto &parameter) {
  return parameter.param.substr(0, parameter.param.find('.'));
});

// In place, radix 2; the length is a power of two.
void fourier(std::vector<std::complex<double>> &values) {
  const std::size_t n = values.size();
  if (n == 1) return;
  std::vector<std::complex<double>> even(n / 2), odd(n / 2);
  for (std::size_t i = 0; i < n / 2; ++i) {
    even[i] = values[2 * i];
    odd[i] = values[2 * i + 1];
  }
  fourier(even);
  fourier(odd);
  for (std::size_t i = 0; i < n / 2; ++i) {
    const auto turned =
        std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n)) * odd[i];
    values[i] = even[i] + turned;
    values[i + n / 2] = even[i] - turned;
  }
}

// Where a sound's energy lies: shares by time (steps of about 46 ms) and pitch (bands of a third of an
// octave), which add up to 1. Loudness drops out.
using Shares = std::map<std::pair<int, int>, double>;

Shares shares_of(const std::vector<int> &samples) {
  constexpr std::size_t window = 2048;
  Shares shares;
  double total = 0;
  for (std::size_t start = 0; start < samples.size(); start += window) {
    std::vector<std::complex<double>> frame(window);
    for (std::size_t i = 0; i < window && start + i < samples.size(); ++i) frame[i] = samples[start + i];
    fourier(frame);
    for (std::size_t bin = 3; bin < window / 2; ++bin) {
      const double energy = std::norm(frame[bin]);
      const int band = static_cast<int>(std::floor(3 * std::log2(static_cast<double>(bin))));
      shares[{static_cast<int>(start / window), band}] += energy;
      total += energy;
    }
  }
  for (auto &[place, share] : shares) share /= total;
  return shares;
}

// Hellinger's distance: 0 for the same distribution, 1 for two that share nothing.
double distance(const Shares &a, const Shares &b) {
  double overlap = 0;
  for (const auto &[place, share] : a) {
    if (const auto other = b.find(place); other != b.end()) overlap += std::sqrt(share * other->second);
  }
  return std::sqrt(std::max(0.0, 1 - overlap));
}

// Loudness after Recommendation ITU-R BS.1770, its weighting taken from the filters' curves and not from the
// filters: over 400 ms, or the whole of a shorter sound, at the loudest place.
double loudness(const std::vector<int> &samples) {
  constexpr std::size_t size = 32768;
  const std::size_t window = std::min<std::size_t>(samples.size(), 17640);
  double loudest = 0;
  for (std::size_t start = 0; start + window <= samples.size(); start += 4410) {
    std::vector<std::complex<double>> frame(size);
    for (std::size_t i = 0; i < window; ++i) frame[i] = samples[start + i] / 32768.0;
    fourier(frame);
    double energy = 0;
    for (std::size_t bin = 1; bin < size / 2; ++bin) {
      const double f = static_cast<double>(bin) * 44100 / size;
      const std::complex<double> s(0, f / 1681.97);
      const double high = std::pow(10.0, 4.0 / 20);
      const auto shelf = (high * s * s + std::sqrt(high) * s / 0.7072 + 1.0) / (s * s + s / 0.7072 + 1.0);
      const std::complex<double> t(0, f / 38.135);
      const auto pass = t * t / (t * t + t / 0.5003 + 1.0);
      energy += 2 * std::norm(frame[bin]) * std::norm(shelf * pass);
    }
    loudest = std::max(loudest, energy / size / static_cast<double>(window));
  }
  return -0.691 + 10 * std::log10(loudest);
}

TEST(Voices, AllAreEquallyLoud) {
  std::vector<double> levels;
  for (const std::string &file : files) levels.push_back(loudness(samples_of_file(file)));
  const auto [least, most] = std::minmax_element(levels.begin(), levels.end());
  EXPECT_LT(*most - *least, 1) << "decibels";
  int highest = 0;
  for (const std::string &file : files) highest = std::max(highest, peak_of(samples_of_file(file)));
  EXPECT_EQ(highest, atelier::crête_sons) << "quieter than they need be";
}

// What a laptop's loudspeaker has to play.
TEST(Voices, TheKnockOfAMistakeCarriesBetween700And1000Hertz) {
  const std::vector<int> samples = samples_of_file("carte_er.wav");
  constexpr std::size_t size = 32768;
  std::vector<std::complex<double>> frame(size);
  for (std::size_t i = 0; i < samples.size() && i < size; ++i) frame[i] = samples[i];
  fourier(frame);
  double there = 0;
  double all = 0;
  for (std::size_t bin = 1; bin < size / 2; ++bin) {
    const double f = static_cast<double>(bin) * 44100 / size;
    all += std::norm(frame[bin]);
    if (f >= 700 && f <= 1000) there += std::norm(frame[bin]);
  }
  EXPECT_GT(there / all, 0.2);
}

TEST(Voices, EveryTwoAreFarApart) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    for (std::size_t j = i + 1; j < files.size(); ++j) {
      const double d = distance(shares_of(samples_of_file(files[i])), shares_of(samples_of_file(files[j])));
      RecordProperty(files[i] + " to " + files[j], std::to_string(d));
      EXPECT_GT(d, 0.6) << files[i] << " and " << files[j];
    }
  }
}

// The measure itself: loudness makes no difference, and the same sound a semitone higher stays near.
TEST(Voices, MeasureIgnoresLoudnessAndSeesWhatIsAlike) {
  const std::vector<int> samples = samples_of_file("carte_ok.wav");
  std::vector<int> soft, higher;
  for (const int sample : samples) soft.push_back(sample / 4);
  for (double place = 0; place < static_cast<double>(samples.size() - 1); place += 1.0594631) {
    higher.push_back(samples[static_cast<std::size_t>(place)]);
  }
  EXPECT_LT(distance(shares_of(samples), shares_of(soft)), 0.05);
  EXPECT_LT(distance(shares_of(samples), shares_of(higher)), 0.6);
}

}  // namespace
