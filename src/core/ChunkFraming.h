#pragma once
// Small helpers shared by the chunk readers and writers (TrackChunks*.cpp only).

#include "ByteStream.h"
#include "TrackDocument.h"

#include <array>
#include <cstdint>

inline void WriteChunkStart(ByteWriter& writer, const char* id, std::int32_t length) {
    writer.WriteChunkId(id);
    writer.WriteLong(length);
}

inline bool ReadChunkEnd(ByteReader& reader, ChunkFrame& frame) {
    reader.ReadLong(frame.subChunkCount);
    return reader.Ok();
}

// Reads a count and checks that that many items of at least itemBytes each can still follow.
inline bool ReadCount(ByteReader& reader, std::int32_t& count, std::size_t itemBytes) {
    return reader.ReadLong(count) && reader.CanHold(count, itemBytes);
}

template <std::size_t N> void ReadSingles(ByteReader& reader, std::array<float, N>& values) {
    for (float& v : values)
        reader.ReadSingle(v);
}

template <std::size_t N> void WriteSingles(ByteWriter& writer, const std::array<float, N>& values) {
    for (float v : values)
        writer.WriteSingle(v);
}

template <std::size_t N> void ReadLongs(ByteReader& reader, std::array<std::int32_t, N>& values) {
    for (std::int32_t& v : values)
        reader.ReadLong(v);
}

template <std::size_t N> void WriteLongs(ByteWriter& writer, const std::array<std::int32_t, N>& values) {
    for (std::int32_t v : values)
        writer.WriteLong(v);
}

template <std::size_t N> void ReadColours(ByteReader& reader, std::array<Colour, N>& values) {
    for (Colour& v : values)
        reader.ReadColour(v);
}

template <std::size_t N> void WriteColours(ByteWriter& writer, const std::array<Colour, N>& values) {
    for (Colour v : values)
        writer.WriteColour(v);
}
