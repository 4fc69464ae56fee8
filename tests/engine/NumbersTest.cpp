#include "engine/Numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "engine/Random.h"

namespace quarvelle {
namespace {

TEST(NumberText, FollowsTheRules) {
    const std::pair<double, const char*> rows[] = {
        // clang-format off
        {0, "0"}, {-0.0, "0"}, {0.5, "0.5"}, {-0.25, "-0.25"}, {12209, "12209"}, {0.1 + 0.2, "0.3"},
        {123456.789, "123456.789"}, {1e-16, "1E-16"}, {1.25e-14, "1.25E-14"}, {1.5e16, "1.5E+16"},
        {1.0 / 3, "0.333333333333333"}, {0.000123456789012345, "1.23456789012345E-04"},
        {1e-15, "0.000000000000001"}, {-4.78005276672E+15, "-4.78005276672E+15"},
        {999999999999999, "999999999999999"}, {999999999999999.9, "1E+15"},
        {1.11036564183981E+305, "1.11036564183981E+305"}, {1e-320, "9.99988867182683E-321"},
        // clang-format on
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(numberText(value), text);
    for (const double value : {std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_GT(numberText(value).size(), 11U) << "must be too long for every readout";
}

TEST(LeadingNumber, ReadsWhatATextBeginsWith) {
    const std::pair<const char*, double> rows[] = {
        {"", 0},    {"abc", 0},      {"-", 0},           {".", 0},          {"-.", 0},      {"5", 5},
        {"007", 7}, {"  \t12", 12},  {"+3", 3},          {"-3", -3},        {"+-3", 0},     {"--3", 0},
        {"++1", 0}, {".5", 0.5},     {"5.", 5},          {"-.5x", -0.5},    {"1e3", 1000},  {"1E+3", 1000},
        {"1e", 1},  {"1e+", 1},      {"2.5e-1", .25},    {"0x10", 0},       {"inf", 0},     {"-infinity", 0},
        {"nan", 0}, {"1E+999", 0},   {"-1E+999", 0},     {"1E+308", 1e308}, {"1.2.3", 1.2}, {"1,5", 1},
        {"1 2", 1}, {"\xD9\xA3", 0}, {"1E-320", 1e-320}, {"000000000", 0},  {"12ab", 12},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(leadingNumber(text), value) << '"' << text << '"';
}

TEST(Numbers, SurviveWritingAndReading) {
    SeededRandom random(7);
    for (int round = 0; round < 20000; ++round) {
        const double value = (random.draw() - 0.5) * std::pow(10, random.below(600) - 300);
        const std::string text = numberText(value);
        const double read = leadingNumber(text);
        EXPECT_NEAR(read, value, std::fabs(value) * 1e-14) << text;
        EXPECT_EQ(numberText(read), text);
    }
}

} // namespace
} // namespace quarvelle
