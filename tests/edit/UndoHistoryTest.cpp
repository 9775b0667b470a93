#include "UndoHistory.h"

#include <gtest/gtest.h>

namespace {

HeightGrid Grid(float level) {
    return HeightGrid(6, 4, level);
}

} // namespace

TEST(UndoHistory, KeepsOnlyTheNewestTwentySteps) {
    UndoHistory history;
    for (int step = 1; step <= 25; ++step)
        history.PushUndo(Grid(static_cast<float>(step)));
    EXPECT_EQ(history.UndoCount(), 20);
    HeightGrid grid = Grid(99.0f);
    for (int undo = 0; undo < 20; ++undo)
        ASSERT_TRUE(history.Undo(grid)) << undo;
    EXPECT_EQ(grid, Grid(6.0f));
    EXPECT_FALSE(history.Undo(grid));
    EXPECT_EQ(grid, Grid(6.0f));
    EXPECT_EQ(history.RedoCount(), 20);
}

TEST(UndoHistory, RedoPutsBackTheGridAsItWasBeforeTheUndoEvenAfterAnotherEdit) {
    UndoHistory history;
    HeightGrid grid = Grid(1.0f);
    history.PushUndo(grid);
    grid.Fill(2.0f);
    history.Undo(grid); // grid 1, redo holds 2
    history.PushUndo(grid);
    grid.Fill(3.0f);
    ASSERT_TRUE(history.Redo(grid));
    EXPECT_EQ(grid, Grid(2.0f));
    EXPECT_FALSE(history.Redo(grid));
    for (float expected : {3.0f, 1.0f}) {
        ASSERT_TRUE(history.Undo(grid));
        EXPECT_EQ(grid, Grid(expected));
    }
}

TEST(UndoHistory, ResetForgetsEveryStepBothWays) {
    UndoHistory history;
    HeightGrid grid = Grid(1.0f);
    history.PushUndo(grid);
    history.PushUndo(grid);
    history.Undo(grid);
    ASSERT_TRUE(history.CanUndo() && history.CanRedo());
    history.Reset();
    EXPECT_FALSE(history.CanUndo() || history.CanRedo() || history.Redo(grid));
}

TEST(UndoHistory, RestoresOnlyTheOverlapOfAStepOfOtherSize) {
    UndoHistory history;
    HeightGrid wide(5, 2), tall(3, 4, -1.0f);
    for (int z = 0; z < 2; ++z)
        for (int x = 0; x < 5; ++x)
            wide.At(z, x) = static_cast<float>(10 * z + x);
    history.PushUndo(wide);
    ASSERT_TRUE(history.Undo(tall));
    EXPECT_TRUE(tall.Columns() == 3 && tall.Rows() == 4);
    EXPECT_TRUE(tall.At(0, 2) == 2.0f && tall.At(1, 0) == 10.0f && tall.At(1, 2) == 12.0f &&
                tall.At(2, 0) == -1.0f);
    // The redo step is the tall grid before the undo; only its 3 x 2 overlap lands on the wide one.
    ASSERT_TRUE(history.Redo(wide));
    EXPECT_EQ(wide.Columns(), 5);
    EXPECT_TRUE(wide.At(1, 2) == -1.0f && wide.At(1, 3) == 13.0f && wide.At(0, 4) == 4.0f);
}
