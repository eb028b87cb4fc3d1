// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/lotDoubles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

namespace {

TEST(Doubles, AreAPlainArrayWhateverIsKnownOfItsFirstMonths) {
    std::mt19937 random(1);
    const auto below = [&](std::size_t n) { return random() % n; };
    TlotDoubles row;
    TlotDoubles other;
    std::vector<double> plain;
    std::vector<double> otherPlain;
    const auto grow = [&](std::size_t count, double value) { plain.resize(std::max(plain.size(), count), value); };
    for (int step = 0; step < 20000; ++step) {
        const std::size_t count = 1 + below(12);
        const std::size_t lead = below(count + 1);
        const auto value = static_cast<double>(below(3));
        const std::function<void()> operations[] = {
            [&] { grow(count, 0), plain[count - 1] = value, row.Set(static_cast<int>(count - 1), value); },
            [&] { plain.resize(count), row.Resize(static_cast<int>(count)); },
            [&] { grow(count, plain.empty() ? 0 : plain.back()), row.Extend(static_cast<int>(count)); },
            [&] { plain.insert(plain.begin(), value), row.InsertFront(value); },
            [&] { grow(1, 0), row.Extend(1), plain.erase(plain.begin()), row.EraseFront(); },
            [&] { std::swap(row, other), std::swap(plain, otherPlain); },
            [&] {
                plain.assign(count, value);
                std::fill_n(plain.begin(), lead, 0.0);
                std::ranges::fill(row.Prepare(static_cast<int>(lead), static_cast<int>(count)), value);
            },
            [&] {
                grow(otherPlain.size(), 0);
                std::ranges::transform(otherPlain, plain, plain.begin(), std::plus<>());
                row.Combine(other, std::plus<>());
            },
        };
        operations[below(std::size(operations))]();
        ASSERT_TRUE(std::ranges::equal(row.Span(), plain)) << "step " << step;
        ASSERT_TRUE(std::ranges::all_of(row.Span().first(static_cast<std::size_t>(row.Lead())), std::logical_not<>()));
    }
    EXPECT_EQ(row.Get(row.Count()), 0) << "past the end";
    EXPECT_THROW((void)row.Get(-1), ERangeError);
}

} // namespace
