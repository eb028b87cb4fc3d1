// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotItem.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <array>

namespace {

struct TShapeKeyword {
    std::string_view Keyword;
    const TlotCashflowItem TlotBaseValues::*Line;
};

/// The keywords that lend a shape. A cost on the rent falls when the lettings are sold, so GROSSRENT takes the months
/// of the capitalised sales.
constexpr std::array<TShapeKeyword, 7> ShapeKeywords = {{
    {"SITEVALUE", &TlotBaseValues::SiteValue},
    {"BUILD", &TlotBaseValues::Build},
    {"NONCAP", &TlotBaseValues::NonCap},
    {"NETCAP", &TlotBaseValues::NetCap},
    {"GROSSRENT", &TlotBaseValues::NetCap},
    {"SECTION", &TlotBaseValues::Section},
    {"GROUP", &TlotBaseValues::Group},
}};

} // namespace

void TlotItem::Value(TlotBaseValues& baseValues) {
    Error = false;
    Line.Amount = 0;
    if (!Percentage) {
        Line.Amount = Amount.Value;
        return;
    }
    if (Amount.Value == 0) {
        return;
    }
    if (const std::string_view trimmed = vip::Trim(BaseFormula); trimmed.size() != BaseFormula.size()) {
        BaseFormula = std::string(trimmed);
    }
    if (BaseFormula.empty()) {
        return;
    }
    if (!IsBaseFormula(BaseFormula)) {
        Error = true;
        Base = 0;
        return;
    }
    try {
        Base = baseValues.Evaluate(BaseFormula);
    } catch (const EEvaluatorError&) {
        Base = 0;
        Error = true;
    }
    Line.Amount = Amount.Value / 100 * Base;
}

void TlotItem::ApplyLink(const TlotBaseValues& baseValues, TlotCashflowItem& shape) {
    shape.ClearAll();
    std::string_view rest = vip::Trim(BaseFormula);
    for (bool more = !rest.empty(); more;) {
        const std::size_t plus = rest.find('+');
        more = plus != std::string_view::npos;
        const std::string_view piece = vip::Trim(rest.substr(0, plus));
        for (const TShapeKeyword& keyword : ShapeKeywords) {
            if (vip::SameText(piece, keyword.Keyword)) {
                shape.Add(baseValues.*keyword.Line);
            }
        }
        rest.remove_prefix(more ? plus + 1 : rest.size());
    }
    Line.SetPortionsFrom(shape);
}

void TlotSection::Calculate(TlotBaseValues& baseValues) {
    Total.ClearAll();
    baseValues.Section.ClearAll();
    for (const auto& item : Items) {
        TlotCashflowItem& line = item->Line;
        line.AccountCode = item->AccountCode;
        item->Value(baseValues);
        line.ReadOnly = item->Link;
        if (item->Link) {
            item->ApplyLink(baseValues, FShape);
        }
        if (!item->IsSubHeading()) {
            line.Spread();
            baseValues.Section.Add(line);
            Total.Add(line);
        }
    }
}

void TlotSectionItemIterator::First() {
    FPosition = -1;
    Next();
}

void TlotSectionItemIterator::Next() {
    ++FPosition;
    if (FPosition >= FSection.Items.Count()) {
        FPosition = -1;
    }
}

TlotItem& TlotSectionItemIterator::CurrentItem() const {
    if (FPosition < 0) {
        throw ELotError("No current unit in TlotSectionItemInterator.GetItem");
    }
    return FSection.Items[FPosition];
}

void TlotProjectItemIterator::First() {
    FPosition = -1;
    NextSection();
}

void TlotProjectItemIterator::NextSection() {
    for (++FPosition; FPosition < FSections.Count(); ++FPosition) {
        FSectionIterator = std::make_unique<TlotSectionItemIterator>(FSections[FPosition]);
        FSectionIterator->First();
        if (!FSectionIterator->IsDone()) {
            return;
        }
    }
    FPosition = -1;
}

void TlotProjectItemIterator::Next() {
    if (FSectionIterator == nullptr) {
        return;
    }
    FSectionIterator->Next();
    if (FSectionIterator->IsDone()) {
        NextSection();
    }
}

TlotItem& TlotProjectItemIterator::CurrentItem() const {
    if (FSectionIterator == nullptr) {
        throw ELotError("No current section in TlotProjectItemIterator.GetItem");
    }
    return FSectionIterator->CurrentItem();
}
