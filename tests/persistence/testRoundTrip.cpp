// SPDX-License-Identifier: GPL-3.0-or-later
//
// Random files, built from the list of what the format holds: they come back as they were, and once computed they save
// alike in every round.
#include "support/lotFiles.h"

#include <map>
#include <random>
#include <sstream>

namespace {

struct TElementForm {
    /// In order. t text, f base formula, n number, i integer, m months, e even, z percent of zone A, b and B boolean, d
    /// date, 0 what isn't computed yet, any other digit an enumeration up to it.
    std::string Attributes;
    const char* Children; ///< In order, those that repeat with the most of them.
};

/// The kinds of fields that mean more than their type says.
const std::map<std::string, char> Kinds = {
    {"Unit.RentFreePeriod", 'm'}, {"Area.Zoning", 'z'},         {"Area.Area", 'e'}, {"Area.Rate", 'i'},
    {"Area.Value", '0'},          {"Item.BaseFormula", 'f'},    {"Loan.Base", 'f'}, {"Section.DefaultBase", 'f'},
    {"Loan.LoanType", '2'},       {"Project.MinSiteValue", 'i'}};

/// The attributes of an element, as the fields of its object tell them.
template <class Object> class TFormOf {
public:
    static std::string Attributes(const char* element) {
        TFormOf form;
        form.FElement = element;
        Object::VisitFields(form);
        return form.FText;
    }

    template <class Place, class... Absent>
    void operator()(const TlotFieldInfo& field, Place /*place*/, const Absent&... /*absent*/) {
        const auto told = Kinds.find(FElement + "." + field.Name);
        const char kind = told != Kinds.end() ? told->second : KindOf<TlotFieldType<Object, Place>>(field.Form);
        FText += std::string(FText.empty() ? "" : " ") + field.Name + ":" + kind;
    }

private:
    template <class Field> static char KindOf(TlotFieldForm form) {
        if constexpr (std::is_same_v<Field, std::string>) {
            return 't';
        } else if constexpr (std::is_same_v<Field, bool>) {
            return form == TlotFieldForm::MixedCase ? 'B' : 'b';
        } else if constexpr (std::is_enum_v<Field>) {
            return '3';
        } else if constexpr (std::is_same_v<Field, std::int32_t>) {
            return form == TlotFieldForm::LoanMonth ? 'm' : 'i';
        } else {
            return form == TlotFieldForm::Date ? 'd' : 'n';
        }
    }

    std::string FElement;
    std::string FText;
};

constexpr const char* SpreadForm = "Start:m Period:m";

const std::map<std::string, TElementForm> Format = {
    {"Project",
     {TFormOf<TlotProject>::Attributes("Project") + " Profit:0 ProfitOnCost:0",
      "SiteValue UnitType:3 Unit:3 Section:4 Inflation Funding Equity Notes AppraisalNotes Address"}},
    {"UnitType", {TFormOf<TlotUnitType>::Attributes("UnitType"), ""}},
    {"Unit", {TFormOf<TlotUnit>::Attributes("Unit") + " Zoning:b", "Build Sales Rent Area:3"}},
    {"Area", {TFormOf<TlotAreaTerms>::Attributes("Area"), ""}},
    {"Section", {TFormOf<TlotSection>::Attributes("Section"), "Item:5"}},
    {"Item", {TFormOf<TlotItem>::Attributes("Item") + " CalculatedValue:0", "Value"}},
    {"Inflation", {TFormOf<TlotInflation>::Attributes("Inflation"), "Targets"}},
    {"Targets", {"SiteValue:b BuildCosts:b CommercialSales:b ResidentialSales:b NonCapitalisedSales:b", ""}},
    {"Funding", {"", "Loan:3"}},
    {"Loan", {TFormOf<TlotLoan>::Attributes("Loan"), "InterestRates Borrow Repay LoanFees"}},
    {"LoanFees", {TFormOf<TlotLoanFees>::Attributes("LoanFees"), ""}},
    {"Equity", {TFormOf<TlotEquity>::Attributes("Equity"), "InterestRates"}},
    {"SiteValue", {SpreadForm, "Values"}},
    {"Build", {SpreadForm, "Values"}},
    {"Sales", {SpreadForm, "Values"}},
    {"Rent", {SpreadForm, "Values"}},
    {"Value", {SpreadForm, "Values"}}};

class TRandomFile {
public:
    explicit TRandomFile(unsigned seed) : FRandom(seed) {
        pugi::xml_node root = FDocument.append_child("Lotmaster");
        root.append_attribute("Version").set_value("13");
        Add(root, "Project");
    }

    /// Numbers have decimal comma.
    [[nodiscard]] std::string Text() const {
        std::ostringstream text;
        FDocument.save(text, "", pugi::format_raw);
        return text.str();
    }

private:
    int Int(int least, int most) { return std::uniform_int_distribution<int>(least, most)(FRandom); }
    template <std::size_t N> std::string Pick(const char* const (&texts)[N]) {
        return texts[Int(0, static_cast<int>(N) - 1)];
    }
    std::string Text(char kind) {
        switch (kind) {
        case 't': return Pick({"", "Shop", "\"Quay\" & <Dock>", "M\u00F6we\r\n\t", "#Fees", "  x ", "Residential"});
        case 'f': return Pick({"", "BUILD", "SITEVALUE+BUILD", "GROSSRENT", "GROUP+SECTION", "NETCAP*2", "PROFIT"});
        case 'n': return std::to_string(Int(0, 90)) + Pick({"", ",5", ",125", ",0001"});
        case 'i': return std::to_string(Int(-3, 9));
        case 'm': return std::to_string(Int(2, 9));
        case 'e': return std::to_string(2 * Int(0, 9));
        case 'z': return Pick({"0", "50", "100"});
        case 'b': return Pick({"TRUE", "FALSE"});
        case 'B': return Pick({"True", "False"});
        case 'd': return Pick({"1999-12-31", "2004-02-29", "2031-07-01"});
        default: return std::to_string(Int(0, kind - '0'));
        }
    }

    void Add(pugi::xml_node parent, const std::string& name) {
        pugi::xml_node node = parent.append_child(name.c_str());
        const auto form = Format.find(name);
        if (form == Format.end()) {
            AddContent(node);
            return;
        }
        std::istringstream attributes(form->second.Attributes);
        for (std::string word; attributes >> word;) {
            node.append_attribute(word.substr(0, word.size() - 2).c_str()).set_value(Text(word.back()).c_str());
        }
        std::istringstream children(form->second.Children);
        for (std::string word; children >> word;) {
            const std::size_t colon = word.find(':');
            const int count = colon == std::string::npos ? 1 : Int(0, word.back() - '0');
            for (int i = 0; i < count; ++i) {
                word == "Values" ? AddMonths(node) : Add(node, word.substr(0, colon));
            }
        }
        if (name == "Area") {
            const int zone = parent.attribute("Zoning").as_bool() ? node.attribute("Zoning").as_int() : 0;
            const int value = node.attribute("Area").as_int() * node.attribute("Rate").as_int();
            // Without a rate it is a lump sum.
            node.attribute("Value").set_value(value == 0 ? 77 : value * (zone == 0 ? 100 : zone) / 100);
        }
    }
    /// Two months or more with gaps between them, or none: any other shape is a plain one.
    void AddMonths(pugi::xml_node line) {
        const int count = Int(-2, 3);
        for (int i = 0; count > 1 && i < count; ++i) {
            pugi::xml_node month = line.append_child("Values");
            month.append_attribute("Index").set_value(2 * i + 1);
            month.append_attribute("SpreadValue").set_value((std::to_string(i + 1) + ",25").c_str());
        }
    }
    /// An array of months, or notes.
    void AddContent(pugi::xml_node node) {
        if (std::string_view(node.parent().name()) == "Project") {
            node.append_child(pugi::node_cdata).set_value("One <b>\nTwo & three");
            return;
        }
        const int count = Int(0, 3);
        node.append_attribute("Count").set_value(count);
        for (int i = 0; i < count; ++i) {
            node.append_child("Value").text().set(Text('n').c_str());
        }
    }

    std::mt19937 FRandom;
    pugi::xml_document FDocument;
};

/// The text on one line, whatever its layout.
std::string Relaid(const std::string& text) {
    pugi::xml_document document;
    document.load_string(text.c_str());
    std::ostringstream result;
    document.save(result, "", pugi::format_raw);
    return result.str();
}

TEST(RoundTrip, FilesComeBackAsTheyWereUnderAnyLocale) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string file = TRandomFile(seed).Text();
        TlotProject project(TestToday);
        ASSERT_TRUE(OpenText(project, file, seed % 2 == 0 ? PointLocale : CommaLocale));
        ASSERT_EQ(Relaid(SavedText(project, CommaLocale)), Relaid(file)) << seed;
    }
}

TEST(RoundTrip, ComputedProjectsSaveByteForByteFromTheFirstRoundOn) {
    const auto recomputed = [](const std::string& text, const TNumberLocale& reading, const TNumberLocale& writing) {
        TlotProject project(TestToday);
        EXPECT_TRUE(OpenText(project, text, reading));
        project.Calculate();
        return SavedText(project, writing);
    };
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string first = recomputed(TRandomFile(seed).Text(), PointLocale, CommaLocale);
        ASSERT_EQ(recomputed(first, PointLocale, CommaLocale), first) << seed;
    }
}

} // namespace
