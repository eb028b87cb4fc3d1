// SPDX-License-Identifier: GPL-3.0-or-later
//
// The owning list of the model, and watches on what it holds: screens keep addresses and watches while objects come, go
// and move. The sanitizers watch.
#include "common/lotLifetime.h"
#include "common/lotOwningList.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

namespace {

struct TThing {
    explicit TThing(char name = '?') : Name(name) {}

    TlotLifetime Lifetime;
    char Name;
};

std::string Names(const TlotOwningList<TThing>& list) {
    std::string names;
    for (const auto& thing : list) {
        names += thing->Name;
    }
    return names;
}

class OwningList : public testing::Test {
protected:
    OwningList() {
        for (const char name : {'a', 'b', 'c', 'd'}) {
            FList.Add(name);
        }
    }

    TlotOwningList<TThing> FList;
};

TEST_F(OwningList, ObjectsMoveWithinTheListAndNotInMemory) {
    const TThing* const b = &FList[1];
    struct TCase {
        int Index;
        int Step;
        bool Moved;
        const char* Names;
    };
    constexpr int most = std::numeric_limits<int>::max();
    for (const TCase& row : {TCase{1, -1, true, "bacd"}, TCase{0, -1, false, "bacd"}, TCase{3, 1, false, "bacd"},
                             TCase{0, 3, true, "acdb"}, TCase{3, 0, true, "acdb"}, TCase{1, most, false, "acdb"},
                             TCase{2, -most, false, "acdb"}, TCase{3, -3, true, "bacd"}}) {
        EXPECT_EQ(FList.Move(row.Index, row.Step), row.Moved) << row.Index << ' ' << row.Step;
        EXPECT_EQ(Names(FList), row.Names);
    }
    EXPECT_EQ(FList.IndexOf(*b), 0);
    EXPECT_THROW(FList.Move(4, -1), ERangeError);
    EXPECT_THROW(FList.Move(-1, 1), ERangeError);
    EXPECT_EQ(FList.IndexOf(TThing('b')), -1) << "that very object, and none like it";
}

TEST_F(OwningList, InsertingHoldsToTheEndsAndDeletingDoesNot) {
    const TThing* const a = &FList[0];
    FList.Insert(-5, '1');
    FList.Insert(99, '2');
    FList.Insert(1, '3');
    for (int i = 0; i < 100; ++i) {
        FList.Add('x');
    }
    EXPECT_EQ(Names(FList).substr(0, 8), "13abcd2x");
    EXPECT_EQ(&FList[2], a);
    for (const int index : {-1, FList.Count(), std::numeric_limits<int>::min()}) {
        EXPECT_THROW(FList.Delete(index), ERangeError);
        EXPECT_THROW(static_cast<void>(FList[index]), ERangeError);
    }
    EXPECT_EQ(FList.Count(), 107);
}

TEST_F(OwningList, AWatchKnowsItsObjectAndNoOther) {
    TlotWatch<char> name(FList[1].Name, FList[1].Lifetime);
    const TlotWatch<char> same = name;
    std::optional<TThing> copy(FList[1]);
    TlotWatch<TThing> copied(*copy, copy->Lifetime);
    FList.Move(1, 2);
    FList[0] = FList[3]; // What it holds, and not what it is.
    EXPECT_EQ(same.Get(), &FList[3].Name);
    FList.Delete(3);
    EXPECT_EQ(Names(FList), "bcd");
    EXPECT_EQ(name.Get(), nullptr);
    EXPECT_EQ(same.Get(), nullptr);
    EXPECT_EQ(copied.Get(), &*copy);
    copy.emplace('n'); // Another one in the very same place.
    EXPECT_EQ(copied.Get(), nullptr);
    name = {FList[0].Name, FList[0].Lifetime};
    EXPECT_EQ(name.Get(), &FList[0].Name);
    name.Forget();
    EXPECT_EQ(name.Get(), nullptr);
    EXPECT_EQ(TlotWatch<TThing>().Get(), nullptr);
}

} // namespace
