// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/frxReport.h"

#include "common/vipErrors.h"
#include "persistence/lotAtomicFile.h"
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/template/lotPicture.h"

#include <algorithm>
#include <utility>
#include <variant>

using namespace report;

namespace {

bool IsNamed(const TTemplateObject& object, std::string_view name) {
    return object.Name.compare(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
                               Qt::CaseInsensitive) == 0;
}

/// The picture's own size at its own resolution, made smaller where it doesn't fit into `most`.
QSizeF NaturalSize(const QImage& picture, const QSizeF& most) {
    constexpr double MetresPerInch = 0.0254;
    const double perInchX = picture.dotsPerMeterX() > 0 ? picture.dotsPerMeterX() * MetresPerInch : 96;
    const double perInchY = picture.dotsPerMeterY() > 0 ? picture.dotsPerMeterY() * MetresPerInch : 96;
    const QSizeF size(picture.width() * TwipsPerInch / perInchX, picture.height() * TwipsPerInch / perInchY);
    return size.width() > most.width() || size.height() > most.height() ? size.scaled(most, Qt::KeepAspectRatio) : size;
}

void NumberText(QString& text, qsizetype page, qsizetype count) {
    text.replace(QChar(PageMark), QString::number(page)).replace(QChar(PageCountMark), QString::number(count));
}

} // namespace

void TfrxReport::Clear() {
    FTemplate = {};
    FRaw.Pages.clear();
    FRaw.Outline.clear();
    NumberPages();
}

void TfrxReport::LoadFromFile(const std::string& fileName) {
    FTemplate = ReadTemplate(fileName, FScope);
}

bool TfrxReport::FindObject(std::string_view name) const {
    bool found = false;
    const auto look = [&](const TTemplateObject& object) { found = found || IsNamed(object, name); };
    for (const TTemplatePage& page : FTemplate.Pages) {
        for (const TTemplateBand& band : page.Bands) {
            EachObject(band, look);
        }
    }
    return found;
}

void TfrxReport::SetPicture(std::string_view name, const std::string& fileName, bool resize) {
    const std::shared_ptr<const QImage> picture = LoadPicture(fileName);
    for (TTemplatePage& page : FTemplate.Pages) {
        const QSizeF room(page.Size.width() - page.Margins.left() - page.Margins.right(),
                          page.Size.height() - page.Margins.top() - page.Margins.bottom());
        const auto set = [&](TTemplateObject& object) {
            auto* const content = std::get_if<TTemplatePicture>(&object.Content);
            if (content != nullptr && IsNamed(object, name)) {
                content->Image = picture;
                if (resize) {
                    object.Rect.setSize(NaturalSize(*picture, room));
                }
            }
        };
        for (TTemplateBand& band : page.Bands) {
            EachObject(band, set);
        }
    }
}

void TfrxReport::SetGradientColours(std::uint32_t start, std::uint32_t end) {
    for (TPreparedReport* const report : {&FRaw, &FPrepared}) {
        report->Gradient.StartColour = 0xFF000000U | start;
        report->Gradient.EndColour = 0xFF000000U | end;
    }
}

void TfrxReport::Prepare(bool append) {
    TPreparedReport report = append ? FRaw : TPreparedReport{{}, {}, FRaw.Gradient, FLocale};
    TPageCursor cursor = FCursor;
    for (const TTemplatePage& page : FTemplate.Pages) {
        TBandMaker maker(FScope, FLocale);
        std::vector<TFlowBand> flow = TReportRunner(FScope, maker).Run(page);
        TPaginator(report, cursor, page, FScope, maker).Place(std::move(flow));
    }
    FRaw = std::move(report);
    FCursor = cursor;
    NumberPages();
}

void TfrxReport::NumberPages() {
    FPrepared = FRaw;
    const auto count = static_cast<qsizetype>(FPrepared.Pages.size());
    qsizetype number = 0;
    for (TPreparedPage& page : FPrepared.Pages) {
        ++number;
        for (TPreparedBand& band : page.Bands) {
            for (TPreparedItem& item : band.Items) {
                if (TPreparedText* const text = item.As<TPreparedText>(); text != nullptr && text->HoldsPageNumber) {
                    NumberText(text->Whole, number, count);
                    for (QString& line : text->Lines) {
                        NumberText(line, number, count);
                    }
                }
            }
        }
    }
}

void TfrxReport::Export(TlotExportFormat format, const std::string& fileName, const TlotDocumentTexts& texts) {
    if (FPrepared.Pages.empty()) {
        throw ELotError("There is no report to save.");
    }
    if (OnBeforePrint) {
        OnBeforePrint();
    }
    if (IsReadOnlyFile(fileName)) {
        throw EFileError(fileName + ": File is read-only.");
    }
    switch (format) {
    case TlotExportFormat::Pdf: WriteFileAtomically(fileName, PdfBytes(FPrepared, texts).toStdString()); break;
    case TlotExportFormat::Html: WriteFileAtomically(fileName, HtmlBytes(FPrepared, texts).toStdString()); break;
    case TlotExportFormat::Rtf: WriteFileAtomically(fileName, RtfBytes(FPrepared, texts).toStdString()); break;
    case TlotExportFormat::Xls: WriteFileAtomically(fileName, XlsReportBytes(FPrepared, texts)); break;
    case TlotExportFormat::Xlsx: WriteFileAtomically(fileName, XlsxReportBytes(FPrepared, texts)); break;
    }
}
