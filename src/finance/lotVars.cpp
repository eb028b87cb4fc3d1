// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotVars.h"

#include "common/vipText.h"

#include <algorithm>

double TlotSource::Value(int month) const {
    double sum = 0;
    for (const TlotCashflowItem* const line : Lines) {
        const double value = line->GetValue(month);
        sum += line->Income ? -value : value;
    }
    return sum * Factor;
}

TlotVariable& TlotVars::Next(const TlotCashflowItem& line) {
    if (FCount == FItems.size()) {
        FItems.emplace_back();
    }
    TlotVariable& variable = FItems[FCount++];
    variable.Line = &line;
    return variable;
}

void TlotVars::Add(std::string_view name, const TlotCashflowItem& line) {
    Next(line).Name.assign(name);
}

void TlotVars::Add(std::string_view section, std::string_view name, const TlotCashflowItem& line) {
    std::string& text = Next(line).Name;
    text.assign(section);
    text.push_back('.');
    text.append(name);
}

void TlotVars::Forget(const TlotCashflowItem& line) {
    const auto end = FItems.begin() + static_cast<std::ptrdiff_t>(FCount);
    // The memory of what is taken out stays behind the end, for the next calculation.
    const auto gone =
        std::stable_partition(FItems.begin(), end, [&](const TlotVariable& v) { return v.Line != &line; });
    FCount = static_cast<std::size_t>(gone - FItems.begin());
}

const TlotVariable* TlotVars::Find(std::string_view name) const {
    for (const TlotVariable& variable : Items()) {
        if (vip::SameText(variable.Name, name)) {
            return &variable;
        }
    }
    return nullptr;
}

void TlotVars::MakeSource(std::string_view text, double factor, TlotSource& source) const {
    source.Factor = factor;
    source.Lines.clear();
    if (vip::Trim(text).empty()) {
        return;
    }
    for (bool more = true; more;) {
        const std::size_t plus = text.find('+');
        more = plus != std::string_view::npos;
        if (const TlotVariable* const variable = Find(text.substr(0, plus))) {
            source.Lines.push_back(variable->Line);
        }
        text.remove_prefix(more ? plus + 1 : text.size());
    }
}
