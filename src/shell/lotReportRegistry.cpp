// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotReportRegistry.h"

std::span<const TlotReportEntry> ReportRegistry() {
    static constexpr TlotReportEntry Entries[] = {
        {TlotAction::ReportAppraisal, "Appraisal"},
        {TlotAction::ReportResidual, "Residual"},
        {TlotAction::ReportOccDetails, "Occupational Details"},
        {TlotAction::ReportAddendum, "Addendum"},
        {TlotAction::ReportFrontPage, "Front Page"},
        {TlotAction::ReportPicture, "Picture"},
    };
    return Entries;
}
