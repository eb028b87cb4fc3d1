// SPDX-License-Identifier: GPL-3.0-or-later
//
// A report engine for tests over two small tables, fed with templates as texts; its pages read back as texts.
#pragma once

#include "reportengine/frxReport.h"
#include "support/lotFiles.h"

#include <QStringList>
#include <string>

class TReportScript {
public:
    TReportScript()
        : Towns("Towns", {{"ID", TlotFieldKind::Integer},
                          {"Name", TlotFieldKind::Text, 80},
                          {"Land", TlotFieldKind::Text, 80},
                          {"Folk", TlotFieldKind::Number},
                          {"Since", TlotFieldKind::Date}}),
          Streets("Streets", {{"Town", TlotFieldKind::Integer}, {"Street", TlotFieldKind::Text, 80}}),
          Report(PointLocale) {
        Streets.Follow("Town", Towns, "ID");
        Report.DataSets = {&Towns, &Streets};
        Report.OnGetValue = [this](std::string_view name) -> std::optional<TlotReportValue> {
            return name == "Limit" ? std::optional<TlotReportValue>(Limit) : std::nullopt;
        };
    }

    TTempFolder Folder;
    TlotTable Towns;
    TlotTable Streets;
    TfrxReport Report;
    double Limit = 0;

    void AddTown(const std::string& name, const std::string& land, double folk) {
        Towns.Append().Set("ID", Towns.RowCount()).Set("Name", name).Set("Land", land).Set("Folk", folk);
    }
    void AddStreet(int town, const std::string& name) { Streets.Append().Set("Town", town).Set("Street", name); }

    void Load(const std::string& children) {
        Report.LoadFromFile(Folder.Write("t.fr3", "<Report>" + children + "</Report>"));
    }
    /// A page of 100 x 100 mm of room.
    static std::string Page(const std::string& bands, const std::string& attributes = {}) {
        return "<Page Paper='A4' MarginLeft='55' MarginRight='55' MarginTop='98.5' MarginBottom='98.5' " + attributes +
               ">" + bands + "</Page>";
    }
    /// Makes the report of one page's bands.
    std::string Run(const std::string& bands, bool append = false) {
        Load(Page(bands));
        Report.Prepare(append);
        return Text();
    }
    /// "a b|c / d": bands by "|", pages by " / ", the texts of a band behind each other.
    [[nodiscard]] std::string Text() const {
        QStringList pages;
        for (const report::TPreparedPage& page : Report.Prepared().Pages) {
            QStringList bands;
            for (const report::TPreparedBand& band : page.Bands) {
                QStringList texts;
                for (const report::TPreparedItem& item : band.Items) {
                    if (const auto* const text = item.As<report::TPreparedText>()) {
                        texts += QStringList(text->Lines.begin(), text->Lines.end());
                    }
                }
                bands += texts.join(' ');
            }
            pages += bands.join('|');
        }
        return pages.join(" / ").toStdString();
    }
    /// What goes wrong in loading or preparing these bands; empty if nothing does.
    std::string Failure(const std::string& bands) {
        try {
            Run(bands);
        } catch (const ELotError& error) {
            std::string text = error.what();
            const std::string file = Folder.File("t.fr3");
            if (const std::size_t at = text.find(file); at != std::string::npos) {
                text.replace(at, file.size(), "FILE");
            }
            return text;
        }
        return {};
    }
};
