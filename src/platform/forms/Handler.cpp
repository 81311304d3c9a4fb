// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Handler.h"

#include "platform/base/Failure.h"
#include "platform/base/Log.h"
#include "platform/forms/Dialogs.h"

#include <new>

namespace platform {
namespace {

void Report(const QString& text) {
    qCWarning(lcQuillmark) << "a command failed:" << text;
    MsgBox(text, Buttons::Ok, Icon::Error);
}

} // namespace

void RunHandler(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const Failure& failure) {
        Report(failure.Text());
    } catch (const std::bad_alloc&) {
        Report(QStringLiteral("No hay memoria suficiente."));
    } catch (const std::exception& error) {
        Report(QStringLiteral("Error inesperado: %1").arg(QString::fromUtf8(error.what())));
    }
}

} // namespace platform
