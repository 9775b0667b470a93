#pragma once
// What every verb of landwright-cli shares: its table entry, the two failure statuses, where a
// conversion takes its terrain from and where an import puts it.

#include "TerrainModel.h"

#include <span>
#include <string>
#include <vector>

// One verb: its name, its arguments and a one-line summary for the usage text, and the code run
// with the arguments that follow the verb. run returns the exit status.
struct CliVerb {
    const char* name;
    const char* arguments;
    const char* summary;
    int (*run)(const std::vector<std::string>& args);
};

// Each group of verbs lives in a file of its own; CliVerbs.cpp lists the groups.
std::span<const CliVerb> FileVerbs();        // info, resave
std::span<const CliVerb> TerrainFileVerbs(); // export-terrain, import-terrain
std::span<const CliVerb> TerragenObjVerbs(); // import-terragen, export-obj
std::span<const CliVerb> ThreeDSVerbs();     // export-3ds
// export-heightmap, export-picture, export-heightmap16, import-heightmap, import-picture,
// import-heightmap16
std::span<const CliVerb> PictureVerbs();

// Status 1: a file could not be read or written. Prints "landwright-cli: message" on standard error.
int Fail(const std::string& message);
// Status 2: wrong usage. Prints "landwright-cli: message" and the usage text on standard error.
int UsageError(const std::string& message);
// The usage text: one line per verb of every group.
std::string UsageText();
// The verb of that name, or nullptr.
const CliVerb* FindVerb(const std::string& name);

// The terrain a conversion starts from: IN is a track (".cvtrack", which must hold a terrain) or a
// terrain file (".cvtera"). False with a reason that names the file.
bool LoadTerrainFor(const std::string& in, TerrainData& terrain, std::string& error);

// Where an import's terrain goes, with the texture defaults filled in as the editor fills them:
// OUT ending in ".cvtera" is written as a terrain file; OUT naming an existing ".cvtrack" gets its
// terrain replaced, every other byte of the track kept. Anything else is refused. Written safely:
// a failure leaves OUT as it was. False with a reason that names the file.
bool StoreImportedTerrain(const std::string& out, TerrainData terrain, std::string& error);
