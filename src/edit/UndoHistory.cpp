#include "UndoHistory.h"

#include <algorithm>

namespace {

constexpr std::size_t kSlotFloats =
    static_cast<std::size_t>(kMaxGridSide) * static_cast<std::size_t>(kMaxGridSide);

} // namespace

UndoHistory::UndoHistory() {
    for (Stack* stack : {&undo_, &redo_})
        for (std::unique_ptr<Slot>& slot : *stack) {
            slot = std::make_unique<Slot>();
            // Capacity only: nothing is written until a step is pushed, so start-up does not fill
            // 40 MB with zeros, and a push within the capacity never allocates.
            slot->heights.reserve(kSlotFloats);
        }
}

void UndoHistory::Reset() {
    undoCount_ = 0;
    redoCount_ = 0;
}

void UndoHistory::PushUndo(const HeightGrid& grid) {
    Push(undo_, undoCount_, grid);
}

void UndoHistory::PushRedo(const HeightGrid& grid) {
    Push(redo_, redoCount_, grid);
}

bool UndoHistory::Undo(HeightGrid& grid) {
    if (undoCount_ == 0) return false;
    PushRedo(grid);
    --undoCount_;
    Restore(*undo_[static_cast<std::size_t>(undoCount_)], grid);
    return true;
}

bool UndoHistory::Redo(HeightGrid& grid) {
    if (redoCount_ == 0) return false;
    PushUndo(grid);
    --redoCount_;
    Restore(*redo_[static_cast<std::size_t>(redoCount_)], grid);
    return true;
}

void UndoHistory::Push(Stack& stack, int& count, const HeightGrid& grid) {
    if (count == kSteps) {
        // Dropping the oldest step: its slot moves to the top to be overwritten, so a push into a
        // full stack still copies only one grid.
        std::rotate(stack.begin(), stack.begin() + 1, stack.end());
        --count;
    }
    Slot& slot = *stack[static_cast<std::size_t>(count)];
    // Grids never exceed kMaxGridSide per side; a larger one costs an allocation instead of
    // being cut short.
    slot.columns = grid.Columns();
    slot.rows = grid.Rows();
    slot.heights.assign(grid.Data(), grid.Data() + grid.Size());
    ++count;
}

void UndoHistory::Restore(const Slot& slot, HeightGrid& grid) {
    const int rows = std::min(slot.rows, grid.Rows());
    const int columns = std::min(slot.columns, grid.Columns());
    if (rows <= 0 || columns <= 0) return;
    for (int z = 0; z < rows; ++z) {
        const auto from = slot.heights.begin() + static_cast<std::ptrdiff_t>(z) * slot.columns;
        std::copy(from, from + columns, grid.Data() + static_cast<std::ptrdiff_t>(z) * grid.Columns());
    }
}
