#include "ByteStream.h"

#include <bit>
#include <cctype>
#include <cstring>

namespace {

std::uint32_t LoadBigEndian(const std::uint8_t* at) {
    return (std::uint32_t{at[0]} << 24) | (std::uint32_t{at[1]} << 16) | (std::uint32_t{at[2]} << 8) |
           std::uint32_t{at[3]};
}

void StoreBigEndian(std::uint32_t value, std::uint8_t* at) {
    at[0] = static_cast<std::uint8_t>(value >> 24);
    at[1] = static_cast<std::uint8_t>(value >> 16);
    at[2] = static_cast<std::uint8_t>(value >> 8);
    at[3] = static_cast<std::uint8_t>(value);
}

} // namespace

bool ByteReader::Take(std::size_t count, const std::uint8_t*& at) {
    if (!ok_ || count > Remaining()) {
        ok_ = false;
        return false;
    }
    at = bytes_.data() + position_;
    position_ += count;
    return true;
}

bool ByteReader::ReadByte(std::uint8_t& value) {
    const std::uint8_t* at = nullptr;
    if (!Take(1, at)) return false;
    value = *at;
    return true;
}

bool ByteReader::ReadBool(bool& value) {
    std::uint8_t raw = 0;
    if (!ReadByte(raw)) return false;
    value = raw != 0;
    return true;
}

bool ByteReader::ReadLong(std::int32_t& value) {
    const std::uint8_t* at = nullptr;
    if (!Take(4, at)) return false;
    value = static_cast<std::int32_t>(LoadBigEndian(at));
    return true;
}

bool ByteReader::ReadSingle(float& value) {
    const std::uint8_t* at = nullptr;
    if (!Take(4, at)) return false;
    value = std::bit_cast<float>(LoadBigEndian(at));
    return true;
}

bool ByteReader::ReadColour(Colour& value) {
    const std::uint8_t* at = nullptr;
    if (!Take(4, at)) return false;
    value = LoadBigEndian(at) & 0x00FFFFFFu; // the first byte carries nothing
    return true;
}

bool ByteReader::ReadText(std::size_t length, std::string& value) {
    const std::uint8_t* at = nullptr;
    if (!Take(length, at)) return false;
    value.assign(reinterpret_cast<const char*>(at), length);
    return true;
}

bool ByteReader::ReadString(std::string& value) {
    std::int32_t length = 0;
    if (!ReadLong(length)) return false;
    if (length < 0) {
        ok_ = false;
        return false;
    }
    return ReadText(static_cast<std::size_t>(length), value);
}

bool ByteReader::ReadChunkId(std::string& id) {
    if (!ReadText(4, id)) return false;
    for (char& c : id)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return true;
}

bool ByteReader::Skip(std::size_t count) {
    const std::uint8_t* at = nullptr;
    return Take(count, at);
}

bool ByteReader::ReadSingles(float* values, std::size_t count) {
    if (count > Remaining() / 4) {
        ok_ = false;
        return false;
    }
    const std::uint8_t* at = nullptr;
    Take(count * 4, at);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = std::bit_cast<float>(LoadBigEndian(at + 4 * i));
    return true;
}

void ByteReader::Advance(std::size_t count) {
    // Saturate rather than wrap: a position beyond the end simply makes every later read fail.
    position_ = count > SIZE_MAX - position_ ? SIZE_MAX : position_ + count;
}

bool ByteReader::CanHold(std::int64_t count, std::size_t itemBytes) {
    if (!ok_ || count < 0 || (itemBytes > 0 && static_cast<std::uint64_t>(count) > Remaining() / itemBytes)) {
        ok_ = false;
        return false;
    }
    return true;
}

void ByteWriter::WriteLong(std::int32_t value) {
    std::uint8_t raw[4];
    StoreBigEndian(static_cast<std::uint32_t>(value), raw);
    bytes_.insert(bytes_.end(), raw, raw + 4);
}

void ByteWriter::WriteSingle(float value) {
    WriteLong(static_cast<std::int32_t>(std::bit_cast<std::uint32_t>(value)));
}

void ByteWriter::WriteString(const std::string& text) {
    WriteLong(static_cast<std::int32_t>(text.size()));
    WriteText(text);
}

void ByteWriter::WriteSingles(const float* values, std::size_t count) {
    const std::size_t start = bytes_.size();
    bytes_.resize(start + 4 * count);
    std::uint8_t* at = bytes_.data() + start;
    for (std::size_t i = 0; i < count; ++i)
        StoreBigEndian(std::bit_cast<std::uint32_t>(values[i]), at + 4 * i);
}
