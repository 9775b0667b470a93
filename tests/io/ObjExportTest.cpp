#include "ObjExport.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <string>

namespace {

TerrainData Grid(int columns, int rows) {
    TerrainData t;
    NewTerrainGrid(t, columns, rows);
    return t;
}

std::size_t CountLinesStarting(const std::string& text, const std::string& start) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, start.size(), start) == 0) ++count;
        const std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos) break;
        at = end + 2;
    }
    return count;
}

// Restores the C locale when a test that switched it ends, even by a failed assertion.
struct LocaleGuard {
    ~LocaleGuard() { std::setlocale(LC_ALL, "C"); }
};

} // namespace

TEST(ObjNumbers, KeepTheirPointDropTrailingZerosAndRoundToSixDecimals) {
    const std::pair<double, const char*> numbers[] = {
        {-512.0, "-512."},
        {0.0, "0."},
        {-0.5, "-0.5"},
        {static_cast<double>(0.1f), "0.1"},
        {static_cast<double>(1024.0f / 3.0f), "341.333344"},
        {0.000001, "0.000001"},
        {123.4567891, "123.456789"},
        {2.9999996, "3."},
        {-0.0000001, "0."}, // too small to show: zero, without a sign
        {1234567890.5, "1234567890.5"},
    };
    for (const auto& [value, text] : numbers)
        EXPECT_EQ(FormatObjNumber(value), text) << value;
    for (const auto& [value, text] :
         {std::pair{999LL, "999"}, {1000LL, "1,000"}, {1234567LL, "1,234,567"}, {0LL, "0"}, {-4LL, "-4"}})
        EXPECT_EQ(FormatGroupedCount(value), text) << value;
}

TEST(ObjNumbers, UseAPointUnderACommaLocaleToo) {
    LocaleGuard guard;
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr && std::setlocale(LC_ALL, "de_DE.utf8") == nullptr)
        GTEST_SKIP() << "no German locale on this machine";
    ASSERT_EQ(std::string(std::localeconv()->decimal_point), ",");
    EXPECT_EQ(FormatObjNumber(3.25), "3.25");
    TerrainData t = Grid(4, 4);
    t.heights.Fill(0.5f);
    const std::string text = MakeObjText(t);
    EXPECT_NE(text.find("v -384. -384. 0.5\r\n"), std::string::npos);
    EXPECT_EQ(text.find("0,5"), std::string::npos);
}

TEST(ObjText, OfASmallTerrainIsExactlyThisFile) {
    TerrainData t = Grid(4, 4);
    t.waterEnabled = true;
    const float heights[4][4] = {{0.0f, 1.5f, -2.25f, 10.0f},
                                 {3.0f, 0.125f, 7.0f, -10.0f},
                                 {150.0f, 42.0f, 0.000001f, 5.0f},
                                 {1, 2, 3, 4}};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            t.heights.At(r, c) = heights[r][c];
    const std::string expected = "# CorvantaLandwright v1.3 - terrain editor for Corvanta coaster tracks\r\n"
                                 "# Terrain Size: 4 x 4\r\n"
                                 "# Uses Water: True\r\n"
                                 "# Total Vertices: 16\r\n"
                                 "# Total Faces: 2\r\n"
                                 "\r\n"
                                 "# OBJECT #\r\n"
                                 "g TERRAIN\r\n"
                                 "\r\n"
                                 "# Vertices #\r\n"
                                 "v -384. -384. 0.\r\n"
                                 "v -128. -384. 1.5\r\n"
                                 "v 128. -384. -2.25\r\n"
                                 "v 384. -384. 10.\r\n"
                                 "v -384. -128. 3.\r\n"
                                 "v -128. -128. 0.125\r\n"
                                 "v 128. -128. 7.\r\n"
                                 "v 384. -128. -10.\r\n"
                                 "v -384. 128. 150.\r\n"
                                 "v -128. 128. 42.\r\n"
                                 "v 128. 128. 0.000001\r\n"
                                 "v 384. 128. 5.\r\n"
                                 "v -384. 384. 1.\r\n"
                                 "v -128. 384. 2.\r\n"
                                 "v 128. 384. 3.\r\n"
                                 "v 384. 384. 4.\r\n"
                                 "\r\n"
                                 "# Faces #\r\n"
                                 "f 5 6 10\r\n"
                                 "f 10 9 5\r\n"
                                 "f 6 7 11\r\n"
                                 "f 11 10 6\r\n"
                                 "f 9 10 14\r\n"
                                 "f 14 13 9\r\n"
                                 "f 10 11 15\r\n"
                                 "f 15 14 10\r\n";
    EXPECT_EQ(MakeObjText(t), expected);
}

TEST(ObjText, CountsInTheHeaderAreGroupedAndTheFacesLeaveTheFirstBandOpen) {
    EXPECT_NE(MakeObjText(Grid(102, 102)).find("\r\n# Total Vertices: 10,404\r\n# Total Faces: 19,602\r\n"),
              std::string::npos);
    // A narrow grid: the first face still starts on the second row.
    const std::string narrow = MakeObjText(Grid(7, 3));
    EXPECT_NE(narrow.find("# Total Faces: 0\r\n"), std::string::npos);
    EXPECT_NE(narrow.find("# Faces #\r\nf 8 9 16\r\n"), std::string::npos);
    EXPECT_EQ(CountLinesStarting(narrow, "f "), 10u);
}

TEST(ObjFile, AWriteThatFailsSaysWhyAndKeepsTheFileThatWasThere) {
    ScratchFolder folder;
    std::string error;
    ASSERT_TRUE(WriteObjFile(folder.File("a.obj"), Grid(3, 3), error)) << error;
    EXPECT_EQ(ReadText(folder.File("a.obj")), MakeObjText(Grid(3, 3)));
    EXPECT_FALSE(WriteObjFile(folder.File("missing/b.obj"), Grid(3, 3), error));
    EXPECT_NE(error.find("b.obj"), std::string::npos) << error;
    WriteText(folder.File("kept.obj"), "old");
    std::filesystem::permissions(folder.File("kept.obj"), std::filesystem::perms::owner_read);
    EXPECT_FALSE(WriteObjFile(folder.File("kept.obj"), Grid(3, 3), error));
    EXPECT_EQ(ReadText(folder.File("kept.obj")), "old");
}
