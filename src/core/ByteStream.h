#pragma once
// Big-endian primitives of the track and terrain file formats.
//
// ByteReader walks a borrowed byte span with a cursor and never reads past its end: every read
// reports failure instead, after which the reader stays failed. ByteWriter appends to a growing
// buffer. Colours are 24-bit values 0x00BBGGRR (red in the low byte); bools read non-zero as true
// and are written as 255 or 0; chunk ids are upper-cased when read.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

using Colour = std::uint32_t;

class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes, std::size_t position = 0)
        : bytes_(bytes), position_(position) {}

    bool ReadByte(std::uint8_t& value);
    bool ReadBool(bool& value);
    bool ReadLong(std::int32_t& value);
    bool ReadSingle(float& value);
    bool ReadColour(Colour& value);
    bool ReadText(std::size_t length, std::string& value);
    bool ReadString(std::string& value); // a long length, then that many bytes
    bool ReadChunkId(std::string& id);   // four bytes, upper-cased
    bool Skip(std::size_t count);        // checked: fails when fewer bytes are left
    // Big-endian singles for a whole block at once; used for height grids.
    bool ReadSingles(float* values, std::size_t count);

    // Moves the cursor forward without checking; a later read past the end fails. Used for the
    // skip of unknown chunks, whose end may legitimately lie beyond the data.
    void Advance(std::size_t count);

    // Checks that `count` items of at least `itemBytes` each can still fit in the data, so that
    // a hostile count is refused before anything is allocated for it.
    bool CanHold(std::int64_t count, std::size_t itemBytes);

    bool Ok() const { return ok_; }
    std::size_t Position() const { return position_; }
    std::size_t Remaining() const { return position_ < bytes_.size() ? bytes_.size() - position_ : 0; }

private:
    bool Take(std::size_t count, const std::uint8_t*& at);
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    bool ok_ = true;
};

class ByteWriter {
public:
    void Reserve(std::size_t bytes) { bytes_.reserve(bytes); }
    void WriteByte(std::uint8_t value) { bytes_.push_back(value); }
    void WriteBool(bool value) { bytes_.push_back(value ? 255 : 0); }
    void WriteLong(std::int32_t value);
    void WriteSingle(float value);
    void WriteColour(Colour value) { WriteLong(static_cast<std::int32_t>(value & 0x00FFFFFFu)); }
    void WriteText(const std::string& text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
    // A length long and, when the length is above 0, the text.
    void WriteString(const std::string& text);
    void WriteZeros(std::size_t count) { bytes_.insert(bytes_.end(), count, 0); }
    void WriteChunkId(const char* id) {
        for (int i = 0; i < 4; ++i)
            bytes_.push_back(static_cast<std::uint8_t>(id[i]));
    }
    // Big-endian singles for a whole block at once; used for height grids.
    void WriteSingles(const float* values, std::size_t count);

    std::size_t Size() const { return bytes_.size(); }
    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }
    std::vector<std::uint8_t> Take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};
