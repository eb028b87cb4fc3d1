// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/exports/lotReportGrid.h"
#include "reportengine/pages/lotReportPainter.h"

#include <QBuffer>
#include <QColor>
#include <QTextStream>
#include <algorithm>
#include <map>
#include <numeric>
#include <vector>

namespace report {

namespace {

constexpr double PixelsPerTwip = 96 / TwipsPerInch;

QString Colour(QRgb colour) {
    return QColor::fromRgb(colour).name();
}

/// A picture in the page itself.
QString DataUri(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "data:image/png;base64," + QString::fromLatin1(bytes.toBase64());
}

class THtmlPage {
public:
    THtmlPage(const TPreparedReport& report, const TlotDocumentTexts& texts)
        : FReport(report), FTexts(texts), FGrid(BuildReportGrid(report)) {}

    [[nodiscard]] QByteArray Bytes();

private:
    [[nodiscard]] QString Head() const;
    void AddTableStart(QString& body) const;
    void AddRow(QString& body, const TGridRow& row);
    void AddCell(QString& body, const TGridCell& cell);
    [[nodiscard]] QString ClassOf(const TTextLook& look);

    const TPreparedReport& FReport;
    const TlotDocumentTexts& FTexts;
    const TReportGrid FGrid;
    std::vector<TTextLook> FLooks;
};

QString THtmlPage::ClassOf(const TTextLook& look) {
    auto found = std::ranges::find(FLooks, look);
    if (found == FLooks.end()) {
        FLooks.push_back(look);
        found = FLooks.end() - 1;
    }
    return "t" + QString::number(found - FLooks.begin());
}

QString THtmlPage::Head() const {
    const auto text = [](const std::string& value) { return QString::fromStdString(value).toHtmlEscaped(); };
    QString head;
    QTextStream out(&head);
    out << "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n<meta "
           "charset=\"utf-8\"/>\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
        << "<meta name=\"author\" content=\"" << text(FTexts.Author) << "\"/>\n<meta name=\"generator\" content=\""
        << text(FTexts.Creator) << "\"/>\n<title>" << text(FTexts.Title) << "</title>\n<style>\n"
        << "body{margin:0;background:#e9eded;font-family:\"Open Sans\",\"Segoe UI\",Arial,sans-serif;"
           "font-variant-numeric:tabular-nums;color:#000}\n"
        << "main{max-width:860px;margin:24px auto;padding:40px 48px;background:#fff;overflow-x:auto;"
           "box-shadow:0 1px 6px rgba(0,0,0,.2)}\n"
        << "table{border-collapse:collapse;width:100%;min-width:680px;table-layout:fixed}\n"
        << "td{padding:1px 2px;vertical-align:baseline;overflow-wrap:break-word}\n"
        << "tr.above td{border-top:1px solid #12343b}\ntr.below td{border-bottom:1px solid #12343b}\n"
        << "tr.bar td{background:" << Colour(FReport.Gradient.EndColour) << ";padding:4px 2px}\n"
        << "tr.bar{background:linear-gradient(to right," << Colour(FReport.Gradient.StartColour) << ","
        << Colour(FReport.Gradient.EndColour) << ")}\ntr.bar td{background:none}\n"
        << "td img{max-width:100%;height:auto}\ntr.top td{vertical-align:top}\n"
        << "@media print{body{background:#fff}main{margin:0;padding:0;box-shadow:none;max-width:none}"
           "table+table{page-break-before:always}}\n";
    for (std::size_t i = 0; i < FLooks.size(); ++i) {
        const TTextLook& look = FLooks[i];
        out << "td.t" << i << "{font-size:" << look.Size << "pt;line-height:" << look.LineSpacing
            << ";color:" << Colour(look.Colour) << (look.Bold ? ";font-weight:600" : "")
            << (look.Italic ? ";font-style:italic" : "")
            << (look.Align == TAlign::Right    ? ";text-align:right;white-space:nowrap"
                : look.Align == TAlign::Centre ? ";text-align:center"
                                               : "")
            << "}\n";
    }
    out << "</style>\n</head>\n";
    return head;
}

void THtmlPage::AddTableStart(QString& body) const {
    const double width = std::accumulate(FGrid.Columns.begin(), FGrid.Columns.end(), 0.0);
    body += "<table>\n<colgroup>";
    for (const double column : FGrid.Columns) {
        body += QString("<col style=\"width:%1%\"/>").arg(column * 100 / width, 0, 'f', 2);
    }
    body += "</colgroup>\n";
}

void THtmlPage::AddCell(QString& body, const TGridCell& cell) {
    const TPreparedItem& item = *cell.Item;
    const QString span = cell.Span > 1 ? QString(" colspan=\"%1\"").arg(cell.Span) : QString();
    if (const auto* const source = item.As<TPreparedText>()) {
        QString text;
        for (const QString& line : source->Whole.trimmed().split(u'\n')) {
            text += (text.isEmpty() ? "" : "<br/>") + line.toHtmlEscaped().remove(u'\r');
        }
        const QString fill = qAlpha(item.Fill) != 0 ? " style=\"background:" + Colour(item.Fill) + "\"" : QString();
        // The whole text: what had to be cut to fit on paper fits here.
        body += "<td class=\"" + ClassOf(source->Look) + "\"" + span + fill + ">" + text + "</td>";
        return;
    }
    const auto* const picture = item.As<TPreparedPicture>();
    const QImage image = picture != nullptr ? *picture->Image : ItemPicture(FReport, item, 2 * PixelsPerTwip);
    const QSizeF size =
        picture != nullptr ? QSizeF(image.size()).scaled(item.Rect.size(), Qt::KeepAspectRatio) : item.Rect.size();
    const QString align = item.Align() == TAlign::Right ? " style=\"text-align:right\"" : QString();
    body += QString("<td%1%2><img alt=\"%3\" width=\"%4\" src=\"%5\"/></td>")
                .arg(span, align, item.Name.isEmpty() ? QString("Chart") : item.Name.toHtmlEscaped())
                .arg(static_cast<int>(size.width() * PixelsPerTwip))
                .arg(DataUri(image));
}

void THtmlPage::AddRow(QString& body, const TGridRow& row) {
    if (row.GapAbove > TwipsPerMm) {
        body += QString("<tr style=\"height:%1px\"><td colspan=\"%2\"></td></tr>\n")
                    .arg(static_cast<int>(row.GapAbove * PixelsPerTwip))
                    .arg(FGrid.Columns.size());
    }
    QStringList classes;
    classes += row.RuleAbove ? QStringList("above") : QStringList();
    classes += row.RuleBelow ? QStringList("below") : QStringList();
    classes += row.Gradient ? QStringList("bar") : QStringList();
    const auto isText = [](const TGridCell& cell) { return cell.Item->Is<TPreparedText>(); };
    classes += std::ranges::all_of(row.Cells, isText) ? QStringList() : QStringList("top");
    body += classes.isEmpty() ? QString("<tr") : "<tr class=\"" + classes.join(' ') + "\"";
    body += qAlpha(row.Fill) != 0 ? " style=\"background:" + Colour(row.Fill) + "\">" : QString(">");
    int column = 0;
    const auto fill = [&](int upTo) {
        if (upTo > column) {
            body += upTo - column > 1 ? QString("<td colspan=\"%1\"></td>").arg(upTo - column) : QString("<td></td>");
        }
    };
    for (const TGridCell& cell : row.Cells) {
        fill(cell.Column);
        AddCell(body, cell);
        column = cell.Column + cell.Span;
    }
    fill(static_cast<int>(FGrid.Columns.size()));
    body += "</tr>\n";
}

QByteArray THtmlPage::Bytes() {
    QString body = "<body>\n<main>\n";
    AddTableStart(body);
    bool any = false;
    for (const TGridRow& row : FGrid.Rows) {
        if (row.PartStart && any) {
            body += "</table>\n";
            AddTableStart(body);
        }
        any = true;
        AddRow(body, row);
    }
    body += "</table>\n</main>\n</body>\n</html>\n";
    return (Head() + body).toUtf8();
}

} // namespace

QByteArray HtmlBytes(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    return THtmlPage(report, texts).Bytes();
}

} // namespace report
