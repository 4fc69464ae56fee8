#pragma once

#include <QString>
#include <vector>

namespace quarvelle::testing {

/// What a person could type into a number box to see what happens.
inline const std::vector<QString> hostileNumbers{
    // clang-format off
    "1E+308", "-1E+308", "1E-320", "999999999", "-0", "1e", "++1", "0x10", "1.5E+16", "000000000", "1E+999",
    "1,5", ".", "-", "inf", "nan", "5.5", "-7", "32771", "1E199", "\xD9\xA3", "\xE2\x88\x92" "3", "1E+15",
    "0.1", "1E-5", "", "103", "99999999", " 13", "7q",
    // clang-format on
};

} // namespace quarvelle::testing
