#pragma once
// A small reader of 3DS chunk trees for the tests, written apart from the exporter: it walks a
// file's bytes, checks that every chunk lies inside its parent and that the sub-chunks of each
// container fill it exactly, and hands back the tree with each chunk's place in the bytes.

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

struct Chunk3DS {
    std::uint16_t id = 0;
    std::uint32_t length = 0;
    std::size_t start = 0; // offset of the chunk's header
    std::size_t data = 0;  // offset of the chunk's own contents (before any sub-chunk)
    std::vector<Chunk3DS> children;

    std::vector<std::uint16_t> ChildIds() const {
        std::vector<std::uint16_t> ids;
        for (const Chunk3DS& c : children)
            ids.push_back(c.id);
        return ids;
    }
    const Chunk3DS* Find(std::uint16_t wanted) const {
        for (const Chunk3DS& c : children)
            if (c.id == wanted) return &c;
        return nullptr;
    }
};

class Chunk3DSReader {
public:
    explicit Chunk3DSReader(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    // The tree from offset 0, or an error naming the first inconsistency.
    bool Walk(Chunk3DS& root, std::string& error) {
        error_.clear();
        const bool ok = ReadChunk(0, bytes_.size(), root) && root.length == bytes_.size();
        if (ok) return true;
        error = error_.empty() ? "the main chunk does not span the file" : error_;
        return false;
    }

    std::uint16_t U16(std::size_t at) const {
        return static_cast<std::uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
    }
    std::uint32_t U32(std::size_t at) const {
        return static_cast<std::uint32_t>(U16(at)) | static_cast<std::uint32_t>(U16(at + 2)) << 16;
    }
    float F32(std::size_t at) const {
        const std::uint32_t bits = U32(at);
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    std::string Text(std::size_t at) const {
        std::string s;
        while (at < bytes_.size() && bytes_[at] != 0)
            s.push_back(static_cast<char>(bytes_[at++]));
        return s;
    }

private:
    // Bytes of a container's own contents before its sub-chunks; -1 for a chunk without sub-chunks.
    long long Prefix(std::uint16_t id, std::size_t data, std::size_t end) const {
        switch (id) {
        case 0x4D4D:
        case 0x3D3D:
        case 0xAFFF:
        case 0x4100:
        case 0xA010:
        case 0xA020:
        case 0xA030:
        case 0xA040:
        case 0xA041:
        case 0xA050:
        case 0xA052:
        case 0xA053:
        case 0xA084:
            return 0;
        case 0x4000: { // the object's name and its zero
            std::size_t at = data;
            while (at < end && bytes_[at] != 0)
                ++at;
            return at < end ? static_cast<long long>(at - data + 1) : -2;
        }
        case 0x4120: // the face count and the faces
            return data + 2 <= end ? 2 + 8 * static_cast<long long>(U16(data)) : -2;
        default:
            return -1;
        }
    }

    bool ReadChunk(std::size_t at, std::size_t end, Chunk3DS& chunk) {
        if (at + 6 > end) return Fail("a chunk header runs past its parent at " + std::to_string(at));
        chunk.id = U16(at);
        chunk.length = U32(at + 2);
        chunk.start = at;
        chunk.data = at + 6;
        if (chunk.length < 6 || at + chunk.length > end)
            return Fail("chunk " + std::to_string(chunk.id) + " at " + std::to_string(at) +
                        " overruns its parent");
        const std::size_t chunkEnd = at + chunk.length;
        const long long prefix = Prefix(chunk.id, chunk.data, chunkEnd);
        if (prefix == -1) return true;
        if (prefix < 0 || chunk.data + static_cast<std::size_t>(prefix) > chunkEnd)
            return Fail("the contents of chunk " + std::to_string(chunk.id) + " overrun it");
        for (std::size_t child = chunk.data + static_cast<std::size_t>(prefix); child < chunkEnd;) {
            Chunk3DS sub;
            if (!ReadChunk(child, chunkEnd, sub)) return false;
            child += sub.length;
            chunk.children.push_back(std::move(sub));
        }
        return true;
    }

    bool Fail(std::string why) {
        error_ = std::move(why);
        return false;
    }

    const std::vector<std::uint8_t>& bytes_;
    std::string error_;
};

// What an export holds at a glance: its objects' names and its materials' diffuse colours, in file
// order. Fails the test when the file at path does not walk.
struct Export3DSSummary {
    std::vector<std::string> objects;
    std::vector<std::array<int, 3>> diffuse;
};

inline Export3DSSummary Summarise3DS(const std::string& path) {
    const std::vector<std::uint8_t> bytes = ReadBytes(path);
    Chunk3DSReader reader(bytes);
    Chunk3DS root;
    Export3DSSummary summary;
    std::string error;
    const bool walked = reader.Walk(root, error);
    EXPECT_TRUE(walked) << path << ": " << error;
    if (!walked || root.children.size() < 2) return summary;
    for (const Chunk3DS& c : root.children[1].children) {
        if (c.id == 0x4000) summary.objects.push_back(reader.Text(c.data));
        const Chunk3DS* diffuse = c.id == 0xAFFF ? c.Find(0xA020) : nullptr;
        if (diffuse) {
            const std::size_t rgb = diffuse->data + 6;
            summary.diffuse.push_back({bytes[rgb], bytes[rgb + 1], bytes[rgb + 2]});
        }
    }
    return summary;
}
