// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPaintDevice;
class QTextDocument;

namespace platform {

/// Pixels to the inch in the lengths of a QTextDocument's formats: the primary screen's logical
/// resolution, 96 without a screen.
double DocumentDotsPerInch();

/// Lays the document out for that device, which must live as long as the layout uses it. The
/// layout itself scales fonts, tabs and vertical space to the device but leaves the side margins
/// and the first line's indent of paragraphs as they are: these are changed here, so call it once,
/// with a clone if the document is also shown.
void SetTargetDevice(QTextDocument& document, QPaintDevice& device);

} // namespace platform
