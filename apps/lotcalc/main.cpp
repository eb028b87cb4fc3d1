// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotTool.h"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return static_cast<int>(RunTool(argc, argv, std::cout, std::cerr));
}
