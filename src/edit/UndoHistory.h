#pragma once
// Undo and redo of height changes: two stacks of whole-grid snapshots.
//
// Each stack has 20 slots, every one reserved once at the largest grid (513 x 513) so that pushing
// never allocates; the memory is only written when a step is pushed. A slot remembers the grid's column and
// row counts with its heights. When a stack is full, pushing drops its oldest step. A new edit does not clear
// the redo stack: the redo steps stay available, and a later Redo puts back the state saved before the last
// Undo.

#include "TerrainModel.h"

#include <array>
#include <memory>
#include <vector>

class UndoHistory {
public:
    static constexpr int kSteps = 20;

    UndoHistory();

    // Empties both stacks (the slots keep their memory).
    void Reset();
    // Stores the grid as the newest undo step, dropping the oldest when 20 are kept.
    void PushUndo(const HeightGrid& grid);
    // The same on the redo stack.
    void PushRedo(const HeightGrid& grid);
    // Pushes the present grid as a redo step and puts back the newest undo step. Only the stored
    // columns x rows are copied back (as far as the grid reaches); the grid keeps its own size.
    // Returns false, changing nothing, when there is nothing to undo.
    bool Undo(HeightGrid& grid);
    // The mirror of Undo: pushes the present grid as an undo step and puts back the newest redo step.
    bool Redo(HeightGrid& grid);

    bool CanUndo() const { return undoCount_ > 0; }
    bool CanRedo() const { return redoCount_ > 0; }
    int UndoCount() const { return undoCount_; }
    int RedoCount() const { return redoCount_; }

private:
    struct Slot {
        int columns = 0;
        int rows = 0;
        std::vector<float> heights; // columns * rows, with room for kMaxGridSide * kMaxGridSide
    };
    using Stack = std::array<std::unique_ptr<Slot>, kSteps>;
    static void Push(Stack& stack, int& count, const HeightGrid& grid);
    static void Restore(const Slot& slot, HeightGrid& grid);

    Stack undo_;
    Stack redo_;
    int undoCount_ = 0;
    int redoCount_ = 0;
};
