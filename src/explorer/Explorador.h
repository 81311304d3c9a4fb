// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/MarcoExplorador.h"
#include "explorer/cSubclassListView.h"
#include "explorer/clsListFile.h"
#include "platform/controls/ImageList.h"
#include "platform/files/FileSystemObject.h"
#include "platform/forms/Form.h"

#include <QString>
#include <array>
#include <memory>

class QToolButton;

namespace Ui {
class Explorador;
}

namespace explorer {

/// The window that shows a folder beside the documents. It begins with C: each time it is opened.
class Explorador : public platform::Form {
    Q_OBJECT

public:
    Explorador(MarcoExplorador& marco, const platform::FileSystemObject& fso);
    ~Explorador() override;

    /// Sets the skin, from a picture file by program path, and the colours of the titles as
    /// 0x00BBGGRR. If the skin can't be read the desktop paints the header.
    void setColumnHeader(const QString& SpathSkin, qint32 lColorNormal, qint32 lColorUp,
                         bool bIconAlingmentRight = false, bool bTextBold = false);

    clsListFile* cFile() const { return m_cFile.get(); }
    /// Takes the listing over; call its SetControls afterwards.
    void cFile(std::unique_ptr<clsListFile> vData);
    void cFile_changePath(QString& Ruta);

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void Toolbar1_ButtonClick(int Index);
    void PrepararBoton(QToolButton& boton, int Index, const char16_t* dibujo);
    void ListarPathAlternativo();

    std::unique_ptr<Ui::Explorador> m_ui;
    MarcoExplorador& m_marco;
    const platform::FileSystemObject& m_fso;
    std::array<platform::ImageList, 2> ImageList1; // small, large
    platform::ImageList ImageListNormal;
    platform::ImageList imagelistup;
    std::unique_ptr<clsListFile> m_cFile;
    std::unique_ptr<cSubclassListView> cSkin;
    QString archivoConfig;
    QString pathAlternativo;
};

} // namespace explorer
