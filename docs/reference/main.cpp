// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the manual's chapter of all calls; scripts/reference puts it there.
#include "documents/editor/lua/Reference.h"

#include <iostream>

int main() {
    std::cout << documents::ReferenceChapter();
}
