# SPDX-License-Identifier: GPL-3.0-or-later
# libxlsxwriter as the target LotXlsxWriter: the package brings no CMake files of its own.

find_path(LOTMASTER_XLSXWRITER_INCLUDE xlsxwriter.h REQUIRED)
find_library(LOTMASTER_XLSXWRITER_LIBRARY xlsxwriter REQUIRED)
mark_as_advanced(LOTMASTER_XLSXWRITER_INCLUDE LOTMASTER_XLSXWRITER_LIBRARY)

add_library(LotXlsxWriter INTERFACE)
target_include_directories(LotXlsxWriter SYSTEM INTERFACE "${LOTMASTER_XLSXWRITER_INCLUDE}")
target_link_libraries(LotXlsxWriter INTERFACE "${LOTMASTER_XLSXWRITER_LIBRARY}")
