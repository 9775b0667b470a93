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
    std::size_t data = 0; // offset of the chunk's own contents (before any sub-chunk)
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

    // The tree from offset 0; false at the first chunk that does not fit.
    bool Walk(Chunk3DS& root) const {
        return ReadChunk(0, bytes_.size(), root) && root.length == bytes_.size();
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
    long long Prefix(std::uint16_t id, std::size_t data) const {
        static constexpr std::uint16_t kContainers[] = {0x4D4D, 0x3D3D, 0xAFFF, 0x4100, 0xA010,
                                                        0xA020, 0xA030, 0xA040, 0xA041, 0xA050,
                                                        0xA052, 0xA053, 0xA084};
        for (std::uint16_t c : kContainers)
            if (c == id) return 0;
        if (id == 0x4000) return static_cast<long long>(Text(data).size() + 1); // the name and its zero
        if (id == 0x4120 && data + 2 <= bytes_.size()) return 2 + 8 * static_cast<long long>(U16(data));
        return -1;
    }

    bool ReadChunk(std::size_t at, std::size_t end, Chunk3DS& chunk) const {
        if (at + 6 > end) return false;
        chunk.id = U16(at);
        chunk.length = U32(at + 2);
        chunk.data = at + 6;
        if (chunk.length < 6 || at + chunk.length > end) return false;
        const std::size_t chunkEnd = at + chunk.length;
        const long long prefix = Prefix(chunk.id, chunk.data);
        if (prefix < 0) return true;
        if (chunk.data + static_cast<std::size_t>(prefix) > chunkEnd) return false;
        for (std::size_t child = chunk.data + static_cast<std::size_t>(prefix); child < chunkEnd;) {
            Chunk3DS sub;
            if (!ReadChunk(child, chunkEnd, sub)) return false;
            child += sub.length;
            chunk.children.push_back(std::move(sub));
        }
        return true;
    }

    const std::vector<std::uint8_t>& bytes_;
};

// What an export holds at a glance: its objects' names and its materials' diffuse colours, in file
// order. Fails the test when the file at path does not walk.
struct Export3DSSummary {
    std::vector<std::string> objects;
    std::vector<std::array<int, 3>> diffuse;
};

inline Export3DSSummary Summarise3DS(const std::string& path) {
    const std::vector<std::uint8_t> bytes = ReadBytes(path);
    const Chunk3DSReader reader(bytes);
    Chunk3DS root;
    Export3DSSummary summary;
    if (!reader.Walk(root) || root.children.size() < 2) {
        ADD_FAILURE() << path << " does not walk";
        return summary;
    }
    for (const Chunk3DS& c : root.children[1].children) {
        if (c.id == 0x4000) summary.objects.push_back(reader.Text(c.data));
        if (const Chunk3DS* diffuse = c.id == 0xAFFF ? c.Find(0xA020) : nullptr)
            summary.diffuse.push_back(
                {bytes[diffuse->data + 6], bytes[diffuse->data + 7], bytes[diffuse->data + 8]});
    }
    return summary;
}
