// SPDX-License-Identifier: GPL-3.0-or-later
//
// The separators by locale name. A table of our own, since a machine in a batch farm seldom has more than the "C"
// locale installed, and a project file must come out alike on it.
#include "common/vipNumber.h"
#include "common/vipText.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace vip {

namespace {

constexpr char32_t NoBreakSpace = U'\u00A0';
constexpr char32_t Apostrophe = U'\u2019';

struct TLocaleRow {
    std::string_view Name;
    TNumberLocale Separators;
};

constexpr TNumberLocale PointComma{U'.', U','};
constexpr TNumberLocale CommaPoint{U',', U'.'};
constexpr TNumberLocale CommaSpace{U',', NoBreakSpace};
constexpr TNumberLocale PointApostrophe{U'.', Apostrophe};

/// Territories that differ from their language, before the languages themselves.
constexpr std::array Territories = {
    TLocaleRow{"de_CH", PointApostrophe}, TLocaleRow{"de_LI", PointApostrophe}, TLocaleRow{"de_AT", CommaSpace},
    TLocaleRow{"it_CH", PointApostrophe}, TLocaleRow{"es_MX", PointComma},      TLocaleRow{"es_US", PointComma},
    TLocaleRow{"es_PR", PointComma},      TLocaleRow{"es_DO", PointComma},      TLocaleRow{"es_GT", PointComma},
    TLocaleRow{"es_HN", PointComma},      TLocaleRow{"es_NI", PointComma},      TLocaleRow{"es_PA", PointComma},
    TLocaleRow{"es_PE", PointComma},      TLocaleRow{"es_SV", PointComma},      TLocaleRow{"es_CR", CommaSpace},
    TLocaleRow{"en_ZA", CommaSpace},      TLocaleRow{"en_DK", CommaPoint},      TLocaleRow{"en_BE", CommaPoint},
    TLocaleRow{"en_DE", CommaPoint},      TLocaleRow{"en_NL", CommaPoint},      TLocaleRow{"en_AT", CommaPoint},
    TLocaleRow{"en_SE", CommaSpace},      TLocaleRow{"en_FI", CommaSpace},      TLocaleRow{"fr_LU", CommaPoint},
    TLocaleRow{"fr_MA", CommaPoint},      TLocaleRow{"pt_PT", CommaSpace},
};

constexpr std::array Languages = {
    TLocaleRow{"C", PointComma},  TLocaleRow{"POSIX", PointComma}, TLocaleRow{"en", PointComma},
    TLocaleRow{"ga", PointComma}, TLocaleRow{"gd", PointComma},    TLocaleRow{"cy", PointComma},
    TLocaleRow{"he", PointComma}, TLocaleRow{"hi", PointComma},    TLocaleRow{"ja", PointComma},
    TLocaleRow{"ko", PointComma}, TLocaleRow{"ms", PointComma},    TLocaleRow{"mt", PointComma},
    TLocaleRow{"th", PointComma}, TLocaleRow{"zh", PointComma},    TLocaleRow{"ar", PointComma},
    TLocaleRow{"fa", PointComma}, TLocaleRow{"bn", PointComma},    TLocaleRow{"ta", PointComma},
    TLocaleRow{"ur", PointComma}, TLocaleRow{"sw", PointComma},    TLocaleRow{"rm", PointApostrophe},
    TLocaleRow{"bs", CommaPoint}, TLocaleRow{"ca", CommaPoint},    TLocaleRow{"da", CommaPoint},
    TLocaleRow{"de", CommaPoint}, TLocaleRow{"el", CommaPoint},    TLocaleRow{"es", CommaPoint},
    TLocaleRow{"eu", CommaPoint}, TLocaleRow{"gl", CommaPoint},    TLocaleRow{"hr", CommaPoint},
    TLocaleRow{"id", CommaPoint}, TLocaleRow{"is", CommaPoint},    TLocaleRow{"it", CommaPoint},
    TLocaleRow{"lb", CommaPoint}, TLocaleRow{"mk", CommaPoint},    TLocaleRow{"nl", CommaPoint},
    TLocaleRow{"pt", CommaPoint}, TLocaleRow{"ro", CommaPoint},    TLocaleRow{"sl", CommaPoint},
    TLocaleRow{"sr", CommaPoint}, TLocaleRow{"tr", CommaPoint},    TLocaleRow{"vi", CommaPoint},
    TLocaleRow{"af", CommaSpace}, TLocaleRow{"be", CommaSpace},    TLocaleRow{"bg", CommaSpace},
    TLocaleRow{"cs", CommaSpace}, TLocaleRow{"et", CommaSpace},    TLocaleRow{"fi", CommaSpace},
    TLocaleRow{"fr", CommaSpace}, TLocaleRow{"hu", CommaSpace},    TLocaleRow{"hy", CommaSpace},
    TLocaleRow{"ka", CommaSpace}, TLocaleRow{"kk", CommaSpace},    TLocaleRow{"lt", CommaSpace},
    TLocaleRow{"lv", CommaSpace}, TLocaleRow{"nb", CommaSpace},    TLocaleRow{"nn", CommaSpace},
    TLocaleRow{"no", CommaSpace}, TLocaleRow{"pl", CommaSpace},    TLocaleRow{"ru", CommaSpace},
    TLocaleRow{"sk", CommaSpace}, TLocaleRow{"sq", CommaSpace},    TLocaleRow{"sv", CommaSpace},
    TLocaleRow{"uk", CommaSpace},
};

template <class Rows> std::optional<TNumberLocale> FindRow(const Rows& rows, std::string_view name) {
    const auto row = std::ranges::find_if(rows, [&](const TLocaleRow& r) { return SameText(r.Name, name); });
    return row == rows.end() ? std::nullopt : std::optional(row->Separators);
}

} // namespace

std::optional<TNumberLocale> FindNumberLocale(std::string_view name) {
    std::string plain(name.substr(0, name.find_first_of(".@")));
    std::ranges::replace(plain, '-', '_');
    if (const auto found = FindRow(Territories, plain)) {
        return found;
    }
    return FindRow(Languages, std::string_view(plain).substr(0, plain.find('_')));
}

TNumberLocale EnvironmentNumberLocale() {
    for (const char* const variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        // The first variable that is set decides, as everywhere on the platform.
        if (const char* const value = std::getenv(variable); value != nullptr && *value != '\0') {
            return FindNumberLocale(value).value_or(TNumberLocale{});
        }
    }
    return {};
}

} // namespace vip
