// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the files that are built for newer machines this one can run. Such a file is named after
// what it needs and gets it by its compiler options; who calls it asks here first.
#pragma once

namespace png {

/// The instructions that this machine has beyond the least of its kind; none in a build for any
/// kind of machine.
struct Machine {
    bool Ssse3 = false;
    bool Bmi2 = false; ///< with BMI
};

const Machine& ThisMachine();

} // namespace png
