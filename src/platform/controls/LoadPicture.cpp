// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/LoadPicture.h"

#include "platform/base/Failure.h"
#include "platform/files/FileErrors.h"
#include "platform/files/Files.h"

#include <QBuffer>
#include <QImageReader>

namespace platform {
namespace {

bool IsTooLarge(const QImageReader& reader) {
    const QSize size = reader.size();
    const qint64 limit = qint64{QImageReader::allocationLimit()} << 20; // bytes
    return qint64{size.width()} * size.height() > limit / 4;
}

QString ReasonOf(const QImageReader& reader) {
    switch (reader.error()) {
    case QImageReader::UnsupportedFormatError:
        return QStringLiteral("no es una imagen de un formato conocido");
    case QImageReader::InvalidDataError:
        return QStringLiteral("la imagen está dañada");
    default:
        return QStringLiteral("la imagen no se puede leer");
    }
}

} // namespace

QImage LoadPicture(const QString& path) {
    if (path.isEmpty())
        return {};
    QByteArray bytes = ReadFile(path);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const bool large = IsTooLarge(reader);
    QImage picture = large ? QImage() : reader.read();
    if (picture.isNull())
        throw Failure(FailureCode::InvalidPicture, QStringLiteral("Imágenes"),
                      FileFailureText(u"abrir", path,
                                      large ? QStringLiteral("la imagen es demasiado grande")
                                            : ReasonOf(reader)));
    return picture;
}

} // namespace platform
