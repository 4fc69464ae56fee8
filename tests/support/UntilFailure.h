#pragma once

#include <gtest/gtest.h>
#include <ranges>

namespace quarvelle::testing {

/// `cases | untilFailure` ends once the running test has failed, so that one cause doesn't fail a hundred
/// cases.
inline constexpr auto untilFailure =
    std::views::take_while([](const auto&) { return !::testing::Test::HasFailure(); });

} // namespace quarvelle::testing
