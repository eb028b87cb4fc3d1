// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotListAccessible.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotCardList.h"
#include "widgets/lotReportPages.h"

#include <algorithm>

namespace {

class TCardListAccessible final : public TAccessibleParts {
public:
    explicit TCardListAccessible(TCardList& list) : TAccessibleParts(list, QAccessible::List), FList(list) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        // An empty list says what it shows in place of cards.
        const bool hint = kind == QAccessible::Description && FList.Count() == 0;
        return hint ? FList.EmptyText : TAccessibleParts::text(kind);
    }

    [[nodiscard]] int PartCount() const override { return FList.Count(); }
    [[nodiscard]] QAccessible::Role PartRole(int /*part*/) const override { return QAccessible::ListItem; }
    [[nodiscard]] QString PartText(int part, QAccessible::Text kind) const override {
        const TCard& card = FList.Card(part);
        if (kind == QAccessible::Name) {
            return card.Caption;
        }
        QStringList lines;
        if (kind == QAccessible::Description) {
            for (const auto& [label, value] : card.Lines) {
                lines << label + " " + value;
            }
        }
        return lines.join(", ");
    }
    [[nodiscard]] QRect PartRect(int part) const override { return FList.CardRect(part) & FList.viewport()->rect(); }
    [[nodiscard]] int PartAt(const QPoint& place) const override { return FList.CardAt(place); }
    [[nodiscard]] int CurrentPart() const override { return FList.Current(); }
    void SetCurrentPart(int part) const override { FList.SetCurrent(part); }

private:
    TCardList& FList;
};

/// What stands on a page from its top to its bottom, a line for each band.
QString PageText(const report::TPreparedPage& page) {
    std::vector<const report::TPreparedBand*> bands;
    for (const report::TPreparedBand& band : page.Bands) {
        bands.push_back(&band);
    }
    std::ranges::stable_sort(bands, {}, &report::TPreparedBand::Top);
    QStringList text;
    for (const report::TPreparedBand* const band : bands) {
        QStringList line;
        for (const report::TPreparedItem& item : band->Items) {
            if (const auto* const words = item.As<report::TPreparedText>()) {
                line << (words->Elided ? words->Whole
                                       : QStringList(words->Lines.begin(), words->Lines.end()).join(' '));
            }
            if (const auto* const chart = item.As<report::TPreparedChart>()) {
                for (const report::TChartSlice& slice : chart->Slices) {
                    line << slice.Name + QString(" %1%").arg(100 * slice.Value / chart->Total, 0, 'f', 1);
                }
            }
        }
        line.removeAll(QString());
        if (!line.isEmpty()) {
            text << line.join(' ');
        }
    }
    return text.join('\n');
}

class TReportPagesAccessible final : public TAccessibleParts {
public:
    explicit TReportPagesAccessible(TReportPages& pages)
        : TAccessibleParts(pages, QAccessible::Document), FPages(pages) {}

    [[nodiscard]] int PartCount() const override { return FPages.PageCount(); }
    [[nodiscard]] QAccessible::Role PartRole(int /*part*/) const override { return QAccessible::Section; }
    [[nodiscard]] QString PartText(int part, QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name: return QString("Page %1 of %2").arg(part + 1).arg(PartCount());
        case QAccessible::Description: return PageText(FPages.Page(part));
        default: return {};
        }
    }
    [[nodiscard]] QRect PartRect(int part) const override {
        return FPages.ViewRect(part).toRect() & FPages.viewport()->rect();
    }
    [[nodiscard]] int PartAt(const QPoint& place) const override {
        for (int page = 0; page < PartCount(); ++page) {
            if (PartRect(page).contains(place)) {
                return page;
            }
        }
        return -1;
    }
    [[nodiscard]] int CurrentPart() const override { return FPages.CurrentPage(); }
    void SetCurrentPart(int part) const override { FPages.GoToPage(part); }

private:
    TReportPages& FPages;
};

} // namespace

void InstallListAccessible() {
    InstallAccessible<TCardList, TCardListAccessible>();
    InstallAccessible<TReportPages, TReportPagesAccessible>();
}
