// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotGroup.h"

#include "common/vipErrors.h"

TlotGroup& TlotGroupList::Add(std::string_view name) {
    if (FCount == FGroups.size()) {
        FGroups.push_back(std::make_unique<TlotGroup>());
    }
    TlotGroup& group = *FGroups[FCount++];
    group.Name.assign(name);
    group.Total.ClearAll();
    return group;
}

TlotGroup* TlotGroupList::Find(std::string_view name) const noexcept {
    for (std::size_t i = 0; i < FCount; ++i) {
        if (FGroups[i]->Name == name) {
            return FGroups[i].get();
        }
    }
    return nullptr;
}

std::size_t TlotGroupList::Checked(int index) const {
    if (index < 0 || index >= Count()) {
        throw ERangeError();
    }
    return static_cast<std::size_t>(index);
}
