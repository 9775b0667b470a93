// File > Import and File > Export: every way a terrain comes into the editor or leaves it. Imports
// are always offered (each asks before it replaces a terrain); exports need a terrain.
#include "frm3DSExport.h"
#include "frmImportHeightMap16.h"
#include "frmImportPicture.h"
#include "frmImportTerragen.h"
#include "frmMain.h"

#include <QMenu>

namespace {

QAction* AddCommand(QMenu* menu, const char* name, const QString& text) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    return action;
}

} // namespace

void frmMain::BuildImportExportMenus(QMenu* fileMenu) {
    mnuImport = fileMenu->addMenu("&Import");
    mnuImport->setObjectName("mnuImport");
    connect(AddCommand(mnuImport, "mnuImportTerrainFile", "&Terrain File..."), &QAction::triggered, this,
            [this] { editor_.ImportTerrainFile(); });
    connect(AddCommand(mnuImport, "mnuImportTerrainFromTrack", "Terrain from T&rack..."), &QAction::triggered,
            this, [this] { editor_.ImportTerrainFromTrack(); });
    connect(AddCommand(mnuImport, "mnuImportHeightMap", "&Height Map..."), &QAction::triggered, this,
            [this] { editor_.ImportHeightMap(); });
    connect(AddCommand(mnuImport, "mnuImportHeightMap16", "Height Map (&16-bit)..."), &QAction::triggered,
            this, [this] { frmImportHeightMap16::Run(editor_, this); });
    connect(AddCommand(mnuImport, "mnuImportPicture", "&Picture..."), &QAction::triggered, this,
            [this] { frmImportPicture::Run(editor_, this); });
    connect(AddCommand(mnuImport, "mnuImportTerragen", "Terra&gen File..."), &QAction::triggered, this,
            [this] {
                std::optional<SampleGrid> samples = editor_.ImportTerragen();
                if (!samples) return;
                frmImportTerragen dialog(editor_, std::move(*samples), this);
                dialog.exec();
            });

    mnuExport = fileMenu->addMenu("&Export");
    mnuExport->setObjectName("mnuExport");
    connect(AddCommand(mnuExport, "mnuExportTerrainFile", "&Terrain File..."), &QAction::triggered, this,
            [this] { editor_.ExportTerrainFile(); });
    connect(AddCommand(mnuExport, "mnuExportHeightMap", "&Height Map..."), &QAction::triggered, this,
            [this] { editor_.ExportHeightMap(); });
    connect(AddCommand(mnuExport, "mnuExportHeightMap16", "Height Map (&16-bit)..."), &QAction::triggered,
            this, [this] { editor_.ExportHeightMap16(); });
    connect(AddCommand(mnuExport, "mnuExportPicture", "&Picture..."), &QAction::triggered, this,
            [this] { editor_.ExportPicture(); });
    connect(AddCommand(mnuExport, "mnuExportObj", "3D &Object (OBJ)..."), &QAction::triggered, this,
            [this] { editor_.ExportObj(); });
    connect(AddCommand(mnuExport, "mnuExport3DS", "3D &Studio (3DS)..."), &QAction::triggered, this, [this] {
        if (const std::optional<std::string> path = editor_.Export3DS()) {
            frm3DSExport dialog(editor_, *path, this);
            dialog.exec();
        }
    });
}

void frmMain::UpdateImportExportUI() {
    mnuExport->setEnabled(editor_.CanExportTerrain());
}
