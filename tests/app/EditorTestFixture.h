#pragma once
// An editor over a scratch program folder and a scripted shell, with helpers that write tracks.

#include "Editor.h"
#include "SampleTrack.h"
#include "ScriptedShell.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

class EditorTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, folder.Path().string()};

    void SetUp() override { editor.InitPaths(); }
    void TearDown() override { shell.ExpectAllAnswersUsed(); }

    // Writes a sample track, with a terrain of the given size or none, and returns its path.
    std::string WriteTrack(const std::string& name, int terrainSide = 4) {
        TrackDocument doc = MakeSampleTrack(std::max(terrainSide, 1), std::max(terrainSide, 1));
        doc.terrain.terrainInTrack = terrainSide > 0;
        const std::string path = folder.File(name);
        EXPECT_TRUE(WriteTrackFile(path, doc));
        return path;
    }

    // Gives the editor a terrain of its own, as if one had been created.
    void GiveEditorTerrain(int side = 3, float height = 42.0f) {
        NewTerrainGrid(editor.terrain, side, side);
        editor.terrain.heights.Fill(height);
    }

    const ShownMessage& OnlyMessage() const {
        EXPECT_EQ(shell.messages.size(), 1u);
        static const ShownMessage none{"", "", MessageIcon::None};
        return shell.messages.empty() ? none : shell.messages.front();
    }
};
