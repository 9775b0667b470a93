// File > Import and File > Export: every way a terrain comes into the editor or leaves it. Imports
// are always offered (each asks before it replaces a terrain); exports need a terrain.
#include "frmImportHeightMap16.h"
#include "frmImportPicture.h"
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
}

void frmMain::UpdateImportExportUI() {
    mnuExport->setEnabled(editor_.CanExportTerrain());
}
