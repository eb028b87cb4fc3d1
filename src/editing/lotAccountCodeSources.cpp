// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotAccountCodeSources.h"

#include <array>

namespace {

using TSource = TlotCustomDataSource;

constexpr std::array<TlotColumn<TlotItem>, 2> ItemColumns = {{
    {"Name", [](const TlotItem& i) -> TlotValue { return i.Name; }},
    {"Account", [](const TlotItem& i) -> TlotValue { return i.AccountCode; },
     [](TlotItem& i, const TlotValue& v) { i.AccountCode = TSource::AsString(v); }},
}};

constexpr std::array<TlotColumn<TlotUnit>, 4> UnitColumns = {{
    {"Name", [](const TlotUnit& u) -> TlotValue { return u.Name; }},
    {"BuildAccount", [](const TlotUnit& u) -> TlotValue { return u.BuildAccountCode; },
     [](TlotUnit& u, const TlotValue& v) { u.BuildAccountCode = TSource::AsString(v); }},
    {"SalesAccount", [](const TlotUnit& u) -> TlotValue { return u.SalesAccountCode; },
     [](TlotUnit& u, const TlotValue& v) { u.SalesAccountCode = TSource::AsString(v); }},
    {"RentAccount", [](const TlotUnit& u) -> TlotValue { return u.RentAccountCode; },
     [](TlotUnit& u, const TlotValue& v) { u.RentAccountCode = TSource::AsString(v); }},
}};

} // namespace

TlotItemAccountCodeDataSource::TlotItemAccountCodeDataSource(TProjectData& data)
    : TlotItemDataSource(data, ItemColumns, {}) {}

TlotUnitAccountCodeDataSource::TlotUnitAccountCodeDataSource(TProjectData& data) : TlotListSource(data, UnitColumns) {}
