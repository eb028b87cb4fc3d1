// SPDX-License-Identifier: GPL-3.0-or-later
//
// The toolkit writes the pages; what it can't write itself, the bookmarks and the author, is put into its document
// afterwards.
// The library asks its users to say that they use none of its old pointers.
#define POINTERHOLDER_TRANSITION 4

#include "common/vipErrors.h"
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/pages/lotReportPainter.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <string>
#include <vector>

namespace report {

namespace {

QPageLayout LayoutOf(const TPreparedPage& page) {
    const QPageSize size(page.Size / TwipsPerPoint, QPageSize::Point, {}, QPageSize::FuzzyMatch);
    QPageLayout layout(size, QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    if (page.Size.width() > page.Size.height() && layout.fullRect().width() < layout.fullRect().height()) {
        layout.setOrientation(QPageLayout::Landscape);
    }
    return layout;
}

QByteArray DrawPages(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(static_cast<int>(TwipsPerInch));
    writer.setTitle(QString::fromStdString(texts.Title));
    writer.setCreator(QString::fromStdString(texts.Creator));
    writer.setPageLayout(LayoutOf(report.Pages.front()));
    QPainter painter(&writer);
    bool first = true;
    for (const TPreparedPage& page : report.Pages) {
        if (!first) {
            writer.setPageLayout(LayoutOf(page));
            writer.newPage();
        }
        first = false;
        PaintPage(painter, report, page);
    }
    if (!painter.end()) {
        throw ELotError("The pages cannot be drawn.");
    }
    return bytes;
}

/// The bookmarks as the format has them: a chain of entries in each level, each with its first and last child.
class TBookmarks {
public:
    TBookmarks(QPDF& pdf, const TPreparedReport& report)
        : FPdf(pdf), FReport(report), FPages(QPDFPageDocumentHelper(pdf).getAllPages()) {}

    void Write() {
        if (FReport.Outline.empty()) {
            return;
        }
        QPDFObjectHandle root = FPdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        root.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
        std::size_t next = 0;
        const int count = WriteLevel(root, next, 0);
        root.replaceKey("/Count", QPDFObjectHandle::newInteger(count));
        FPdf.getRoot().replaceKey("/Outlines", root);
        FPdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
    }

private:
    /// Writes the entries from `next` on that lie at that level or deeper; their number.
    int WriteLevel(QPDFObjectHandle& parent, std::size_t& next, int level) {
        std::vector<QPDFObjectHandle> entries;
        int count = 0;
        while (next < FReport.Outline.size() && FReport.Outline[next].Level >= level) {
            QPDFObjectHandle entry = MakeEntry(FReport.Outline[next], parent);
            ++next;
            const int inner = WriteLevel(entry, next, level + 1);
            if (inner > 0) {
                entry.replaceKey("/Count", QPDFObjectHandle::newInteger(inner));
            }
            count += 1 + inner;
            entries.push_back(entry);
        }
        for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
            entries[i].replaceKey("/Next", entries[i + 1]);
            entries[i + 1].replaceKey("/Prev", entries[i]);
        }
        if (!entries.empty()) {
            parent.replaceKey("/First", entries.front());
            parent.replaceKey("/Last", entries.back());
        }
        return count;
    }

    QPDFObjectHandle MakeEntry(const TOutlineEntry& outline, const QPDFObjectHandle& parent) {
        const auto page = static_cast<std::size_t>(outline.Page);
        const double top = (FReport.Pages.at(page).Size.height() - outline.Top) / TwipsPerPoint;
        QPDFObjectHandle entry = FPdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        entry.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(outline.Text.toStdString()));
        entry.replaceKey("/Parent", parent);
        entry.replaceKey("/Dest",
                         QPDFObjectHandle::newArray({FPages.at(page).getObjectHandle(),
                                                     QPDFObjectHandle::newName("/XYZ"), QPDFObjectHandle::newNull(),
                                                     QPDFObjectHandle::newReal(top, 1), QPDFObjectHandle::newNull()}));
        return entry;
    }

    QPDF& FPdf;
    const TPreparedReport& FReport;
    std::vector<QPDFPageObjectHelper> FPages;
};

} // namespace

QByteArray PdfBytes(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    const QByteArray pages = DrawPages(report, texts);
    try {
        QPDF pdf;
        pdf.processMemoryFile("report", pages.constData(), static_cast<std::size_t>(pages.size()));
        TBookmarks(pdf, report).Write();
        QPDFObjectHandle info = pdf.getTrailer().getKey("/Info");
        info.replaceKey("/Author", QPDFObjectHandle::newUnicodeString(texts.Author));
        QPDFWriter writer(pdf);
        writer.setOutputMemory();
        writer.setStreamDataMode(qpdf_s_compress);
        writer.setObjectStreamMode(qpdf_o_generate);
        writer.write();
        const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
        return QByteArray::fromStdString(
            std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()));
    } catch (const QPDFExc& error) {
        throw ELotError(std::string("The PDF cannot be finished: ") + error.what());
    }
}

} // namespace report
