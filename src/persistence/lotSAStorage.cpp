// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotSAStorage.h"

#include "persistence/lotXml.h"

void TSAReader::Read(pugi::xml_node root, TSAModel& model, const TNumberLocale& locale) {
    for (const pugi::xml_node node : root.child("Sensitivity").children()) {
        const TlotElement e(node, locale);
        const std::string name = e.Text("Name");
        if (e.Is("Result")) {
            if (const int index = model.Results.IndexOf(name); index >= 0) {
                model.Results[index].Decimals = e.Integer("DecPlaces");
            }
        } else if (e.Is("Category")) {
            if (const int index = model.Categories.IndexOf(name); index >= 0) {
                TSACategory& category = model.Categories[index];
                category.Decimals = e.Integer("DecPlaces");
                category.Thousands = e.Boolean("Commas");
                category.Step = e.Number("Step");
                category.StepCount = e.Integer("StepCount");
            }
        }
    }
}

void TSAWriter::Write(pugi::xml_node root, const TSAModel& model, const TNumberLocale& locale) {
    TlotElementWriter settings(root.append_child("Sensitivity"), locale);
    for (int i = 0; i < model.Categories.Count(); ++i) {
        const TSACategory& category = model.Categories[i];
        TlotElementWriter e = settings.AddChild("Category");
        e.Text("Name", category.Name);
        e.Integer("DecPlaces", category.Decimals);
        e.Boolean("Commas", category.Thousands);
        e.Number("Step", category.Step);
        e.Integer("StepCount", category.StepCount);
    }
    for (int i = 0; i < model.Results.Count(); ++i) {
        TlotElementWriter e = settings.AddChild("Result");
        e.Text("Name", model.Results[i].Name);
        e.Integer("DecPlaces", model.Results[i].Decimals);
    }
}
