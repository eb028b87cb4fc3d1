// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotBandMaker.h"

#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "common/vipText.h"
#include "reportengine/pages/lotPieSlices.h"
#include "reporting/lotMoneyFormat.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <variant>

namespace report {

namespace {

/// Visits the rows that a table shows, and leaves it on the row where it stood.
template <typename TVisit> void ForEachRow(TlotTable& table, const TVisit& visit) {
    const int here = table.Position();
    for (table.First(); !table.Eof(); table.Next()) {
        visit();
    }
    table.First();
    while (!table.Eof() && table.Position() < here) {
        table.Next();
    }
}

constexpr double Tolerance = 2; // Twips that neighbours may overlap and still count as one below the other.

/// An object of the band with the item that became of it.
struct TPlaced {
    const TTemplateObject* Object = nullptr;
    TPreparedItem Item;
    bool Shown = true;
    double Moved = 0; ///< Of its lower edge, by growing and by what grew above it.
};

bool IsAbove(const TTemplateObject& upper, const TTemplateObject& lower) {
    return upper.Rect.bottom() <= lower.Rect.top() + Tolerance && upper.Rect.left() < lower.Rect.right() &&
           lower.Rect.left() < upper.Rect.right();
}

/// How far an object moves down: as far as the one that moves most of those directly above it, with none between.
double PushOf(std::span<const TPlaced> others, const TPlaced& own) {
    double push = 0;
    bool any = false;
    for (const TPlaced& other : others) {
        if (other.Object->Anchor != TAnchor::Top || !IsAbove(*other.Object, *own.Object)) {
            continue;
        }
        const bool hidden = std::ranges::any_of(others, [&](const TPlaced& between) {
            return &between != &other && IsAbove(*other.Object, *between.Object) &&
                   IsAbove(*between.Object, *own.Object);
        });
        if (!hidden) {
            push = any ? std::max(push, other.Moved) : other.Moved;
            any = true;
        }
    }
    return push;
}

/// Moves what stands below texts that grew or collapsed. Objects come in the order of their upper edges.
void Settle(std::vector<TPlaced>& placed) {
    if (std::ranges::all_of(placed, [](const TPlaced& each) { return each.Moved == 0; })) {
        return;
    }
    std::ranges::stable_sort(placed, {}, [](const TPlaced& each) { return each.Object->Rect.top(); });
    for (std::size_t i = 0; i < placed.size(); ++i) {
        if (placed[i].Object->Anchor == TAnchor::Top) {
            const double push = PushOf(std::span(placed).first(i), placed[i]);
            placed[i].Item.Rect.translate(0, push);
            placed[i].Moved += push;
        }
    }
}

/// The band's height: what is below its lowest object stays below it.
double HeightOf(const TTemplateBand& band, std::span<const TPlaced> placed) {
    double before = 0;
    double now = 0;
    for (const TPlaced& each : placed) {
        if (each.Object->Anchor == TAnchor::Top) {
            before = std::max(before, each.Object->Rect.bottom());
            now = std::max(now, each.Object->Rect.bottom() + each.Moved);
        }
    }
    return now + std::max(0.0, band.Height - before);
}

QString Date(double date, const QString& format) {
    if (format.compare("mmm yyyy", Qt::CaseInsensitive) == 0) {
        return QString::fromStdString(vip::MonthYearText(date)).replace(u'-', u' ');
    }
    return QString::fromStdString(vip::DayMonthYearText(date));
}

bool HoldsMark(const QString& text) {
    return text.contains(QChar(PageMark)) || text.contains(QChar(PageCountMark));
}

} // namespace

QString TBandMaker::PartText(const TTextPart& part, bool alone, TPreparedText& text) const {
    if (!part.Expression) {
        return part.Literal;
    }
    const TValue value = FScope.Evaluate(*part.Expression);
    const double* const number = value.Number();
    if (number == nullptr) {
        return QString::fromStdString(value.AsText());
    }
    if (value.IsDate) {
        return Date(*number, part.Format);
    }
    const std::string format =
        part.FormatExpression ? FScope.Evaluate(*part.FormatExpression).AsText() : part.Format.toStdString();
    try {
        const QString figure = QString::fromStdString(FormatFigure(format, *number, FLocale));
        if (alone) {
            text.Number = *number;
            text.Format = format;
        }
        return figure;
    } catch (const ELotError& error) {
        FailAt(part.Expression->Place, QString::fromUtf8(error.what()));
    }
}

void TBandMaker::MakeText(const TTemplateText& source, bool collapse, TPreparedItem& item) {
    TPreparedText& text = item.Content.emplace<TPreparedText>();
    text.Look = source.Look;
    for (const TTextPart& part : source.Parts) {
        text.Whole += PartText(part, source.Parts.size() == 1, text);
    }
    text.HoldsPageNumber = HoldsMark(text.Whole);
    if (!source.Wrap) {
        FMeasure.FitLine(text, item.Rect.width());
        return;
    }
    text.Lines = FMeasure.Break(text.Whole, text.Look, item.Rect.width());
    const double height = TTextMeasure::LineHeight(text.Look) * static_cast<double>(text.Lines.size());
    if (collapse && text.Lines.empty()) {
        item.Rect.setHeight(0);
    } else {
        item.Rect.setHeight(std::max(item.Rect.height(), height));
    }
}

TPreparedChart TBandMaker::MakeChart(const TTemplateChart& source) const {
    TlotTable& table = *FScope.FindTable(source.DataSet);
    std::vector<TChartValue> values;
    ForEachRow(table, [&] {
        if (FScope.IsTrue(source.Filter, true)) {
            const TlotRow row = table.Current();
            values.push_back({QString::fromStdString(row.Text(source.NameField)), row.Number(source.ValueField)});
        }
    });
    TPreparedChart chart;
    chart.Look = source.Look;
    for (const TChartValue& slice : PieSlices(values, "Other")) {
        chart.Slices.push_back({slice.Name, slice.Value, ChartRgb(chart.Slices.size())});
        chart.Total += slice.Value;
    }
    return chart;
}

std::vector<TPreparedItem> TBandMaker::MakeItems(const TTemplateObject& object) {
    std::vector<TPreparedItem> items;
    if (object.Across.empty()) {
        items.push_back(MakeItem(object, object.Rect));
        return items;
    }
    TlotTable& table = *FScope.FindTable(object.Across);
    const double share = object.Rect.width() / std::max(1, table.RowCount());
    const double pitch = object.Pitch > 0 ? std::min(object.Pitch, share) : share;
    QRectF rect(object.Rect.left(), object.Rect.top(), pitch, object.Rect.height());
    ForEachRow(table, [&] {
        items.push_back(MakeItem(object, rect));
        rect.translate(pitch, 0);
    });
    return items;
}

TPreparedItem TBandMaker::MakeItem(const TTemplateObject& object, const QRectF& rect) {
    struct TMaker {
        TBandMaker& Maker;
        const TTemplateObject& Object;
        TPreparedItem& Item;

        void operator()(const TTemplateText& text) const { Maker.MakeText(text, Object.Collapse, Item); }
        void operator()(const TTemplateLine& line) const { Item.Content = TPreparedLine{line.Stroke, line.Width}; }
        void operator()(const TTemplateBox& box) const { Item.Content = TPreparedBox{box.Stroke, box.Width}; }
        void operator()(const TTemplatePicture& picture) const {
            Item.Content = TPreparedPicture{picture.Image, picture.Align, picture.VAlign};
        }
        void operator()(const TTemplateGradient&) const { Item.Content = TPreparedGradient{}; }
        void operator()(const TTemplateChart& chart) const { Item.Content = Maker.MakeChart(chart); }
    };
    TPreparedItem item;
    item.Rect = rect;
    item.Name = object.Name;
    item.Fill = object.Fill;
    if (object.FillExpression) {
        const double colour = FScope.Evaluate(*object.FillExpression).AsNumber();
        item.Fill = 0xFF000000U | (static_cast<QRgb>(std::clamp(colour, 0.0, 16777215.0)) & 0xFFFFFFU);
    }
    std::visit(TMaker{*this, object, item}, object.Content);
    return item;
}

TPreparedBand TBandMaker::Make(const TTemplateBand& band) {
    std::vector<TPlaced> placed;
    placed.reserve(band.Objects.size());
    for (const TTemplateObject& object : band.Objects) {
        const bool shown = FScope.IsTrue(object.Visible, true);
        if (!shown && !object.Collapse) {
            continue;
        }
        std::vector<TPreparedItem> items;
        if (shown) {
            items = MakeItems(object);
        } else {
            items.emplace_back().Rect = QRectF(object.Rect.topLeft(), QSizeF(object.Rect.width(), 0));
        }
        for (TPreparedItem& item : items) {
            const double moved = object.Anchor == TAnchor::Top ? item.Rect.height() - object.Rect.height() : 0;
            placed.push_back({&object, std::move(item), shown, moved});
        }
    }
    Settle(placed);

    TPreparedBand result;
    result.Kind = band.Kind;
    result.Name = band.Name;
    result.Height = HeightOf(band, placed);
    const double grown = result.Height - band.Height;
    for (TPlaced& each : placed) {
        if (!each.Shown) {
            continue;
        }
        if (each.Object->Anchor == TAnchor::Bottom) {
            each.Item.Rect.translate(0, grown);
        } else if (each.Object->Anchor == TAnchor::Stretch) {
            each.Item.Rect.setHeight(std::max(0.0, each.Item.Rect.height() + grown));
        }
        result.Items.push_back(std::move(each.Item));
    }
    return result;
}

} // namespace report
