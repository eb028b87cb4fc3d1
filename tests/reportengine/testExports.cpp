// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/exports/lotReportGrid.h"
#include "support/lotReportScript.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <numeric>

using namespace report;

namespace {

const TlotDocumentTexts Texts{"A <title>", "An author", "Our program (address)"};

/// What a program prints.
QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// Two pages of a small report: a table with figures and totals, repeated heads, a page footer, a chart.
class Exports : public testing::Test {
protected:
    Exports() {
        for (int i = 1; i <= 8; ++i) {
            Script.AddTown("T\xC3\xB6wn & {" + std::to_string(i) + "}", "North", 1000.25 * i);
        }
        Script.Run(
            "<PageFooter Height='10'><Text Width='40' Height='5'>foot</Text>"
            "<Text Left='50' Width='40' Height='5'>Page [Page] of [PageCount]</Text></PageFooter>"
            "<ReportTitle Height='20'><Gradient Width='100' Height='10'/><Text Width='100' Height='10' "
            "Bold='True'>Towns</Text>"
            "<Line Top='12' Width='100'/><Text Top='12.5' Width='40' Height='5' Italic='True'>below a "
            "rule</Text></ReportTitle>"
            "<MasterData DataSet='Towns' Height='10' Bookmark='Towns.Name'>"
            "<Header Repeat='True' Height='5'><Text Left='60' Width='30' Height='5' Align='Right'>Folk</Text></Header>"
            "<Text Left='4' Width='40' Height='5'>[Towns.Name]</Text>"
            "<Text Left='60' Width='30' Height='5' Align='Right' Format=',0.00'>[Towns.Folk]</Text>"
            "<Text Left='92' Width='8' Height='5' Align='Right' Format='0.0%'>[Towns.Folk / 100]</Text></MasterData>"
            "<Summary Height='30'><Chart Width='80' Height='30' DataSet='Towns' NameField='Name' "
            "ValueField='Folk'/></Summary>");
        EXPECT_EQ(Script.Report.PageCount(), 2);
    }

    [[nodiscard]] const TPreparedReport& Report() const { return Script.Report.Prepared(); }
    std::string Save(const char* name, TlotExportFormat format) {
        const std::string file = Script.Folder.File(name);
        Script.Report.Export(format, file, Texts);
        return file;
    }

    TReportScript Script;
};

TEST_F(Exports, GridKeepsColumnsAndLeavesOutWhatPagesRepeat) {
    const TReportGrid grid = BuildReportGrid(Report());
    std::string text;
    for (const TGridRow& row : grid.Rows) {
        text += row.Gradient ? "#" : "";
        text += row.RuleAbove ? "-" : "";
        for (const TGridCell& cell : row.Cells) {
            text += cell.Item->Is<TPreparedText>() ? cell.Item->As<TPreparedText>()->Lines.front().toStdString()
                                                   : "(chart)";
            text += "@" + std::to_string(cell.Column + cell.Span - 1) + " ";
        }
        text += "|";
    }
    EXPECT_TRUE(text.starts_with("#Towns@3 |-below a rule@3 |Folk@2 |T\xC3\xB6wn & {1}@1 1,000.25@2 10.0%@3 |"))
        << text;
    EXPECT_EQ(text.find("Folk", text.find("Folk") + 1), std::string::npos) << "one head for all pages";
    EXPECT_EQ(text.find("Page"), std::string::npos);
    EXPECT_TRUE(text.ends_with("(chart)@1 |foot@3 |")) << text;
}

TEST_F(Exports, PdfIsReadByOthers) {
    const QString file = QString::fromStdString(Save("a.pdf", TlotExportFormat::Pdf));
    const QString info = Output("pdfinfo", {file});
    for (const char* const line : {"Title:           A <title>\n", "Author:          An author\n",
                                   "Creator:         Our program (address)\n", "Pages:           2\n"}) {
        EXPECT_TRUE(info.contains(line)) << info.toStdString();
    }
    EXPECT_TRUE(Output("pdftotext", {"-layout", file, "-"}).contains(QString::fromUtf8("T\xC3\xB6wn & {8}")));
    const QString fonts = Output("pdffonts", {file});
    EXPECT_TRUE(fonts.contains(QRegularExpression("OpenSans\\S*\\s+CID TrueType\\s+Identity-H\\s+yes \\S+\\s+yes")))
        << fonts.toStdString();
    const std::string bytes = ReadBytes(file.toStdString());
    EXPECT_LT(bytes.size(), 60'000U) << "compressed, and of the fonts only what is used";
    const QString marks = Output("pdftohtml", {"-xml", "-stdout", "-i", file});
    EXPECT_TRUE(marks.contains(QString::fromUtf8("<item page=\"1\">T\xC3\xB6wn &amp; {1}</item>")))
        << marks.toStdString();
    EXPECT_TRUE(marks.contains("<item page=\"2\">"));
}

TEST_F(Exports, HtmlIsOneWellFormedFileOfTables) {
    const QByteArray bytes = QByteArray::fromStdString(ReadBytes(Save("a.html", TlotExportFormat::Html)));
    QXmlStreamReader xml(bytes);
    int rows = 0;
    QString text;
    QString title;
    while (!xml.atEnd()) {
        xml.readNext();
        rows += xml.isStartElement() && xml.name() == u"tr";
        if (xml.isStartElement() && xml.name() == u"title") {
            title = xml.readElementText();
        } else if (xml.isCharacters()) {
            text += xml.text();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(title, "A <title>");
    EXPECT_GE(rows, 12);
    EXPECT_TRUE(text.contains(QString::fromUtf8("T\xC3\xB6wn & {8}")) && text.contains("8,002.00"));
    EXPECT_TRUE(bytes.contains("src=\"data:image/png;base64,"));
    EXPECT_FALSE(QString::fromUtf8(bytes).contains(QRegularExpression("(src|href)=\"(?!data:)")));
}

TEST_F(Exports, RtfIsBalancedAndPlainAscii) {
    const std::string rtf = ReadBytes(Save("a.rtf", TlotExportFormat::Rtf));
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        if (rtf[i] == '\\') {
            ++i; // Whatever is escaped doesn't count.
        } else {
            depth += rtf[i] == '{' ? 1 : rtf[i] == '}' ? -1 : 0;
        }
        ASSERT_TRUE(depth > 0 || i + 3 > rtf.size()) << i;
        ASSERT_LT(static_cast<unsigned char>(rtf[i]), 0x80U);
    }
    EXPECT_EQ(depth, 0);
    for (const char* const part : {"T\\u246?wn & \\{8\\}", "8,002.00", "{\\title A <title>}", "{\\author An author}",
                                   "\\pngblip", "NUMPAGES", "\\paperw11906"}) {
        EXPECT_NE(rtf.find(part), std::string::npos) << part;
    }
}

TEST_F(Exports, SheetsHoldNumbersWithTheirFormats) {
    const QString file = QString::fromStdString(Save("a.xlsx", TlotExportFormat::Xlsx));
    const QString sheet = Output("unzip", {"-p", file, "xl/worksheets/sheet1.xml"});
    EXPECT_TRUE(sheet.contains("<v>8002</v>")) << "a figure, not its text";
    EXPECT_TRUE(sheet.contains("<v>0.800")) << "percentages are ratios there";
    const QString styles = Output("unzip", {"-p", file, "xl/styles.xml"});
    EXPECT_TRUE(styles.contains("0.0%")) << styles.toStdString();
    EXPECT_TRUE(styles.contains("numFmtId=\"4\"") || styles.contains("#,##0.00"));
    EXPECT_TRUE(ReadBytes(Save("a.xls", TlotExportFormat::Xls)).starts_with("\xD0\xCF\x11\xE0"));
}

TEST_F(Exports, LinesBesideEachOtherStayInTheirRows) {
    Script.Run(
        "<Summary Height='30'><Text Width='40' Height='20'>Profit on cost&#10;Value&#10;Code&#10;Cover&#10;Loss</Text>"
        "<Text Left='40' Width='20' Height='20' Align='Right' Wrap='True'>8.483%&#10;1,034.50&#10;007&#10;1 years"
        "&#10;-1,03</Text><Text Left='10' Top='25' Width='20' Height='5'>x</Text></Summary>");
    const TReportGrid grid = BuildReportGrid(Report());
    const TGridCell& names = grid.Rows[0].Cells[0];
    EXPECT_GT(std::accumulate(grid.Columns.begin(), grid.Columns.begin() + names.Span, 0.0), 30 * TwipsPerMm)
        << "figures take the room that they need for their widest line, not that of the names";
    const QString file = QString::fromStdString(Save("a.xlsx", TlotExportFormat::Xlsx));
    QStringList cells; // Of each row: how many, and the number if there is one.
    QXmlStreamReader reader(Output("unzip", {"-p", file, "xl/worksheets/sheet1.xml"}));
    while (!reader.atEnd()) {
        if (!reader.readNextStartElement()) {
            continue;
        }
        if (reader.name() == QString("row")) {
            cells += QString();
        } else if (reader.name() == QString("c")) {
            const bool text = reader.attributes().value("t") == QString("s");
            reader.readNextStartElement();
            cells.back() += text ? "t " : reader.readElementText() + " ";
        }
    }
    EXPECT_EQ(cells.join("|").toStdString(), "t 0.08483 |t 1034.5 |t t |t t |t t |t ");
}

TEST_F(Exports, PartsOfADocumentAreKeptApart) {
    Script.Load(
        TReportScript::Page("<ReportTitle Height='10'><Text Width='50' Height='5'>second part</Text></ReportTitle>"));
    Script.Report.Prepare(true);
    EXPECT_EQ(HtmlBytes(Report(), Texts).count("<table>"), 2);
    EXPECT_EQ(RtfBytes(Report(), Texts).count("\\page\\par"), 1);
    EXPECT_EQ(std::ranges::count_if(BuildReportGrid(Report()).Rows, &TGridRow::PartStart), 1);
}

} // namespace
