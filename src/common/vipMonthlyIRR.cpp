// SPDX-License-Identifier: GPL-3.0-or-later
//
// The monthly internal rate of return nearest to a guess. With x = 1 / (1 + r) the flows are the coefficients of a
// polynomial whose positive roots are the rates above -1. One change of sign among the flows, the common case, means
// exactly one root (Descartes), found by bisection. Otherwise the roots are isolated in Bernstein form, whose
// subdivision is numerically stable, nearest interval first: the number of sign changes among the coefficients of an
// interval bounds the number of roots in it.
#include "common/vipRates.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <queue>
#include <vector>

namespace vip {

namespace {

using TCoefficients = std::vector<long double>;

/// Rates of 0 and above are sought over x in (0, 1]; those below 0 over y = 1 / x in (0, 1), on the reversed flows.
enum class TSide : bool { Direct, Reversed };

int Sign(long double value) noexcept {
    return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

template <class Range> int SignChanges(const Range& values) noexcept {
    int changes = 0;
    int last = 0;
    for (const auto value : values) {
        const int sign = Sign(value);
        if (sign != 0) {
            changes += last != 0 && sign != last ? 1 : 0;
            last = sign;
        }
    }
    return changes;
}

long double Evaluate(std::span<const double> flows, TSide side, long double at) noexcept {
    long double sum = 0;
    if (side == TSide::Direct) {
        for (std::size_t i = flows.size(); i-- > 0;) {
            sum = sum * at + flows[i];
        }
    } else {
        for (const double flow : flows) {
            sum = sum * at + flow;
        }
    }
    return sum;
}

double RateAt(TSide side, long double at) noexcept {
    return static_cast<double>(side == TSide::Direct ? 1.0L / at - 1.0L : at - 1.0L);
}

/// The single root between low and high, the sign just above `low` being known.
long double BisectRoot(std::span<const double> flows, TSide side, long double low, long double high, int lowSign) {
    for (int i = 0; i < 300; ++i) {
        const long double middle = (low + high) / 2;
        if (middle <= low || middle >= high) {
            break;
        }
        const int sign = Sign(Evaluate(flows, side, middle));
        if (sign == 0) {
            return middle;
        }
        (sign == lowSign ? low : high) = middle;
    }
    return (low + high) / 2;
}

struct TInterval {
    TSide Side = TSide::Direct;
    long double Low = 0;
    long double High = 1;
    double Distance = 0; ///< Least distance from the guess of any rate in it.
    TCoefficients Bernstein;
};

struct TNearestFirst {
    bool operator()(const TInterval& a, const TInterval& b) const noexcept { return a.Distance > b.Distance; }
};

class TRootSearch {
public:
    TRootSearch(std::span<const double> flows, double guess) : FFlows(flows), FGuess(guess) {}

    bool Run(double& rate) {
        Add(TSide::Direct);
        Add(TSide::Reversed);
        // The bound on the number of subdivisions only guards against flows made to be hostile.
        for (int i = 0; i < 4000 && !FQueue.empty(); ++i) {
            const TInterval interval = FQueue.top();
            FQueue.pop();
            if (FFound && interval.Distance >= std::fabs(FBest - FGuess)) {
                break;
            }
            Visit(interval);
        }
        rate = FBest;
        return FFound;
    }

private:
    void Add(TSide side) {
        TInterval interval;
        interval.Side = side;
        const std::size_t n = FFlows.size() - 1;
        interval.Bernstein.assign(n + 1, 0.0L);
        for (std::size_t j = 0; j <= n; ++j) {
            long double weight = 1;
            for (std::size_t i = 0; i <= j; ++i) {
                interval.Bernstein[j] += weight * (side == TSide::Direct ? FFlows[i] : FFlows[n - i]);
                weight *= static_cast<long double>(j - i) / static_cast<long double>(std::max<std::size_t>(n - i, 1));
            }
        }
        Push(std::move(interval));
    }

    void Push(TInterval interval) {
        const double one = interval.Low > 0 || interval.Side == TSide::Reversed
                               ? RateAt(interval.Side, interval.Low)
                               : std::numeric_limits<double>::infinity();
        const double other = RateAt(interval.Side, interval.High);
        const auto [least, most] = std::minmax(one, other);
        interval.Distance = FGuess < least ? least - FGuess : (FGuess > most ? FGuess - most : 0);
        FQueue.push(std::move(interval));
    }

    void Offer(TSide side, long double at) {
        const double rate = RateAt(side, at);
        if (at > 0 && (!FFound || std::fabs(rate - FGuess) < std::fabs(FBest - FGuess))) {
            FBest = rate;
            FFound = true;
        }
    }

    void Visit(const TInterval& interval) {
        const int changes = SignChanges(interval.Bernstein);
        if (changes == 0) {
            return;
        }
        const auto first = std::ranges::find_if(interval.Bernstein, [](long double c) { return c != 0; });
        const bool narrow = interval.High - interval.Low < 1e-15L;
        if (changes == 1 || (narrow && changes % 2 == 1)) {
            Offer(interval.Side, BisectRoot(FFlows, interval.Side, interval.Low, interval.High, Sign(*first)));
        } else if (!narrow) {
            Split(interval);
        }
    }

    void Split(const TInterval& interval) {
        const std::size_t n = interval.Bernstein.size() - 1;
        const long double middle = (interval.Low + interval.High) / 2;
        TInterval left{interval.Side, interval.Low, middle, 0, TCoefficients(n + 1)};
        TInterval right{interval.Side, middle, interval.High, 0, interval.Bernstein};
        for (std::size_t level = 0; level <= n; ++level) {
            left.Bernstein[level] = right.Bernstein[0];
            for (std::size_t i = 0; i + level < n; ++i) {
                right.Bernstein[i] = (right.Bernstein[i] + right.Bernstein[i + 1]) / 2;
            }
        }
        if (right.Bernstein[0] == 0) {
            Offer(interval.Side, middle);
        }
        Push(std::move(left));
        Push(std::move(right));
    }

    std::span<const double> FFlows;
    double FGuess = 0;
    double FBest = 0;
    bool FFound = false;
    std::priority_queue<TInterval, std::vector<TInterval>, TNearestFirst> FQueue;
};

} // namespace

bool NearestMonthlyIRR(std::span<const double> flows, double guess, double& rate) {
    while (!flows.empty() && flows.front() == 0) {
        flows = flows.subspan(1);
    }
    while (!flows.empty() && flows.back() == 0) {
        flows = flows.first(flows.size() - 1);
    }
    const int changes = SignChanges(flows);
    if (changes == 0) {
        return false;
    }
    if (changes > 1) {
        return TRootSearch(flows, guess).Run(rate);
    }
    const int total = Sign(Evaluate(flows, TSide::Direct, 1));
    if (total == 0) {
        rate = 0;
        return true;
    }
    const TSide side = total != Sign(flows.front()) ? TSide::Direct : TSide::Reversed;
    const int lowSign = Sign(side == TSide::Direct ? flows.front() : flows.back());
    rate = RateAt(side, BisectRoot(flows, side, 0, 1, lowSign));
    return true;
}

} // namespace vip
