#pragma once
// An editor over a scratch program folder and a scripted shell, with helpers that write tracks.

#include "Editor.h"
#include "SampleTrack.h"
#include "ScriptedShell.h"
#include "TestSupport.h"
#include "TrackFile.h"

#include <gtest/gtest.h>

#include <functional>

class EditorTest : public ::testing::Test {
protected:
    ScratchFolder folder;
    ScriptedShell shell;
    Editor editor{shell, shell, folder.Path().string()};

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

    // Gives the editor a terrain of its own, level at height, as if one had been created.
    void GiveEditorTerrain(int side = 3, float height = 42.0f, bool water = false) {
        editor.ReplaceTerrain(
            [&](TerrainData& t) {
                t.waterEnabled = water;
                NewTerrainGrid(t, side, side);
                t.heights.Fill(height);
                return true;
            },
            {});
    }

    // Changes the preferences as the options dialog does.
    void ChangeSettings(const std::function<void(AppSettings&)>& change) {
        AppSettings settings = editor.Settings();
        change(settings);
        editor.ApplySettings(settings);
    }

    // One height changed by an edit of its own (an undo step, the terrain marked changed).
    void EditHeight(int row, int column, float height) {
        ASSERT_TRUE(editor.RunEdit([&](TerrainData& t) {
            t.heights.At(row, column) = height;
            return GridRect{column, row, column, row};
        }));
    }

    const ShownMessage& OnlyMessage() const {
        EXPECT_EQ(shell.messages.size(), 1u);
        static const ShownMessage none{"", "", MessageIcon::None};
        return shell.messages.empty() ? none : shell.messages.front();
    }
};
