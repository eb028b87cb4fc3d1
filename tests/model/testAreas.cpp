// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "model/lotArea.h"

#include <gtest/gtest.h>

namespace {

using TValues = std::vector<double>;

/// A shop of 30, 30 and 20 sq. m in zones of 100, 50 and 25 percent at 500, and a store of 10 at 100 beside them.
class Areas : public testing::Test {
protected:
    Areas() {
        FShop.SetZoning(true);
        for (const double area : {30, 30, 20, 10}) {
            FShop.Add().SetArea(area);
        }
        FShop[0].SetZoning(100);
        FShop[1].SetZoning(50);
        FShop[0].SetRate(500);
        FShop[2].SetZoning(25); // Takes the rate that stands.
        FShop[3].SetRate(100);
    }

    TValues Values() const {
        TValues values;
        for (const auto& row : FShop) {
            values.push_back(row->Value());
        }
        return values;
    }

    TlotAreaSchedule FShop;
};

TEST_F(Areas, EveryZoneFollowsTheRateOfZoneA) {
    EXPECT_EQ(Values(), (TValues{15000, 7500, 2500, 1000}));
    EXPECT_EQ(FShop.ITZA(), 50) << "30 + 15 + 5";
    FShop[1].SetZoning(100);
    FShop[1].SetRate(1);
    EXPECT_EQ(Values(), (TValues{15000, 30, 2500, 1000})) << "the first row at 100 is Zone A";
    FShop[0].SetValue(18000);
    EXPECT_EQ(Values(), (TValues{18000, 18000, 3000, 1000})) << "a value is a rate too";
    FShop[2].SetValue(2000);
    EXPECT_EQ(FShop[2].Value(), 500) << "100 each, which the zone then takes down";
    FShop.SetZoning(false);
    EXPECT_EQ(Values(), (TValues{18000, 18000, 2000, 1000}));
}

TEST_F(Areas, ALumpSumSurvivesALockedOrEmptyRow) {
    FShop[3].SetArea(0);
    EXPECT_EQ(FShop[3].Value(), 1000);
    FShop.Lock();
    FShop[0].SetRate(1);
    FShop[1].SetZoning(75);
    FShop[3].SetValue(9);
    EXPECT_EQ(Values(), (TValues{15000, 7500, 2500, 9}));
    FShop.Unlock();
    EXPECT_THROW(FShop.Unlock(), ELotError);
    EXPECT_FALSE(FShop.IsLocked()) << "the count stays";
}

} // namespace
