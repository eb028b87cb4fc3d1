// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/lotDoubles.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace {

/// Brings `plain` to `count` elements that are 0 below `lead` and `value` from there on.
void Lay(std::vector<double>& plain, int lead, int count, double value) {
    plain.assign(static_cast<std::size_t>(count), value);
    std::fill_n(plain.begin(), lead, 0.0);
}

TEST(Doubles, AreAPlainArrayWhateverIsKnownOfItsFirstMonths) {
    std::mt19937 random(1);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    TlotDoubles row;
    TlotDoubles other;
    std::vector<double> plain;
    std::vector<double> otherPlain;
    for (int step = 0; step < 20000; ++step) {
        const int count = below(12);
        const int lead = below(count + 1);
        const double value = below(3);
        switch (below(9)) {
        case 0:
            plain.resize(std::max(plain.size(), static_cast<std::size_t>(count) + 1));
            plain[static_cast<std::size_t>(count)] = value;
            row.Set(count, value);
            break;
        case 1:
            plain.resize(static_cast<std::size_t>(count));
            row.Resize(count);
            break;
        case 2:
            Lay(plain, lead, count, value);
            std::ranges::fill(row.Prepare(lead, count), value);
            break;
        case 3:
            plain.resize(std::max(plain.size(), static_cast<std::size_t>(count)), plain.empty() ? 0 : plain.back());
            row.Extend(count);
            break;
        case 4:
            plain.insert(plain.begin(), value);
            row.InsertFront(value);
            break;
        case 5:
            if (!plain.empty()) {
                plain.erase(plain.begin());
                row.EraseFront();
            }
            break;
        case 6:
            plain.resize(std::max(plain.size(), otherPlain.size()));
            std::ranges::transform(otherPlain, plain, plain.begin(), std::plus<>());
            row.Combine(other, std::plus<>());
            break;
        case 7: Lay(plain, count, count, 0), row.Zero(count); break;
        default: std::swap(row, other), std::swap(plain, otherPlain); break;
        }
        ASSERT_TRUE(std::ranges::equal(row.Span(), plain)) << "step " << step;
        ASSERT_TRUE(std::ranges::all_of(row.Span().first(static_cast<std::size_t>(row.Lead())), std::logical_not<>()));
    }
    EXPECT_EQ(row.Get(row.Count()), 0) << "past the end";
    EXPECT_THROW((void)row.Get(-1), ERangeError);
    EXPECT_THROW(row.Set(-1, 1), ERangeError);
}

} // namespace
