#pragma once
// The samples an importer has read (a picture's greys, a Terragen file's elevations) while its
// dialog shows a preview and before they become terrain heights. Row 0 is the bottom row, as in
// the terrain; values are stored row by row, the column index varying fastest.

#include <cstddef>
#include <vector>

struct SampleGrid {
    int columns = 0;
    int rows = 0;
    std::vector<float> values;

    bool Empty() const { return values.empty(); }
    void Resize(int newColumns, int newRows, float value = 0.0f) {
        columns = newColumns;
        rows = newRows;
        values.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows), value);
    }
    float& At(int row, int column) { return values[Index(row, column)]; }
    float At(int row, int column) const { return values[Index(row, column)]; }

private:
    std::size_t Index(int row, int column) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }
};
