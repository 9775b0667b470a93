#include "cDIBSection.h"

#include <algorithm>
#include <cmath>

bool cDIBSection::Create(int width, int height) {
    ClearUp();
    if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide) return false;
    const std::size_t bytes =
        static_cast<std::size_t>(ScanLineBytes(width)) * static_cast<std::size_t>(height);
    if (bytes > kMaxBytes) return false;
    bits_.assign(bytes, 0);
    width_ = width;
    height_ = height;
    return true;
}

void cDIBSection::ClearUp() {
    bits_.clear();
    bits_.shrink_to_fit();
    width_ = 0;
    height_ = 0;
}

std::vector<std::uint8_t> cDIBSection::PackedBgr() const {
    const std::size_t rowBytes = static_cast<std::size_t>(width_) * 3;
    std::vector<std::uint8_t> packed(rowBytes * static_cast<std::size_t>(height_));
    for (int row = 0; row < height_; ++row)
        std::copy_n(Row(row), rowBytes,
                    packed.begin() + static_cast<std::ptrdiff_t>(rowBytes * static_cast<std::size_t>(row)));
    return packed;
}

void cDIBSection::RandomiseBits(bool gray, RandomSource& random) {
    for (int row = 0; row < height_; ++row) {
        std::uint8_t* p = Row(row);
        for (int x = 0; x < width_; ++x, p += 3) {
            if (gray) {
                p[0] = p[1] = p[2] = static_cast<std::uint8_t>(random.Next() >> 24);
            } else {
                for (int c = 0; c < 3; ++c)
                    p[c] = static_cast<std::uint8_t>(random.Next() >> 24);
            }
        }
    }
}

namespace {

// The source pixels and weights that make one target pixel along one axis. The weights of a
// target pixel sum to 1, so a uniform picture stays uniform.
struct AxisFilter {
    std::vector<int> first; // per target pixel: index of its first tap; one extra at the end
    std::vector<int> source;
    std::vector<float> weight;
};

void AddTap(AxisFilter& filter, int oldSize, int index, float weight) {
    if (weight <= 0.0f) return;
    filter.source.push_back(std::clamp(index, 0, oldSize - 1));
    filter.weight.push_back(weight);
}

// Linear interpolation between the centres of the two nearest source pixels.
AxisFilter EnlargingFilter(int oldSize, int newSize) {
    AxisFilter filter;
    const double scale = static_cast<double>(oldSize) / newSize;
    for (int i = 0; i < newSize; ++i) {
        filter.first.push_back(static_cast<int>(filter.source.size()));
        const double at = (i + 0.5) * scale - 0.5;
        const double below = std::floor(at);
        const float fraction = static_cast<float>(at - below);
        AddTap(filter, oldSize, static_cast<int>(below), 1.0f - fraction);
        AddTap(filter, oldSize, static_cast<int>(below) + 1, fraction);
    }
    filter.first.push_back(static_cast<int>(filter.source.size()));
    return filter;
}

// Every source pixel the target pixel's span [i, i + 1) * scale touches, weighted by overlap.
AxisFilter ShrinkingFilter(int oldSize, int newSize) {
    AxisFilter filter;
    const double scale = static_cast<double>(oldSize) / newSize;
    for (int i = 0; i < newSize; ++i) {
        filter.first.push_back(static_cast<int>(filter.source.size()));
        const double low = i * scale;
        const double high = (i + 1) * scale;
        for (int j = static_cast<int>(std::floor(low)); j < high && j < oldSize; ++j) {
            const double overlap = std::min<double>(j + 1, high) - std::max<double>(j, low);
            AddTap(filter, oldSize, j, static_cast<float>(overlap / scale));
        }
    }
    filter.first.push_back(static_cast<int>(filter.source.size()));
    return filter;
}

AxisFilter MakeFilter(int oldSize, int newSize) {
    return newSize >= oldSize ? EnlargingFilter(oldSize, newSize) : ShrinkingFilter(oldSize, newSize);
}

void FilterRow(const std::uint8_t* in, const AxisFilter& filter, std::vector<float>& out) {
    std::fill(out.begin(), out.end(), 0.0f);
    const std::size_t size = filter.first.size() - 1;
    for (std::size_t x = 0; x < size; ++x) {
        const auto begin = static_cast<std::size_t>(filter.first[x]);
        const auto end = static_cast<std::size_t>(filter.first[x + 1]);
        for (std::size_t t = begin; t < end; ++t) {
            const std::uint8_t* p = in + 3 * static_cast<std::ptrdiff_t>(filter.source[t]);
            for (std::size_t c = 0; c < 3; ++c)
                out[3 * x + c] += filter.weight[t] * static_cast<float>(p[c]);
        }
    }
}

std::uint8_t ToByte(float value) {
    return static_cast<std::uint8_t>(std::clamp(std::nearbyint(value), 0.0f, 255.0f));
}

} // namespace

cDIBSection cDIBSection::Resample(int newHeight, int newWidth) const {
    cDIBSection result;
    if (IsEmpty() || !result.Create(newWidth, newHeight)) return result;
    const AxisFilter across = MakeFilter(width_, newWidth);
    const AxisFilter up = MakeFilter(height_, newHeight);

    // Each target row sums its source rows, each filtered across first; working row by row keeps
    // the memory to a few rows whatever the sizes, and floats keep the rounding to one step.
    const std::size_t rowValues = static_cast<std::size_t>(newWidth) * 3;
    std::vector<float> sum(rowValues);
    std::vector<float> filtered(rowValues);
    for (int row = 0; row < newHeight; ++row) {
        std::fill(sum.begin(), sum.end(), 0.0f);
        const auto at = static_cast<std::size_t>(row);
        for (auto t = static_cast<std::size_t>(up.first[at]); t < static_cast<std::size_t>(up.first[at + 1]);
             ++t) {
            FilterRow(Row(up.source[t]), across, filtered);
            for (std::size_t i = 0; i < rowValues; ++i)
                sum[i] += up.weight[t] * filtered[i];
        }
        std::uint8_t* out = result.Row(row);
        for (std::size_t i = 0; i < rowValues; ++i)
            out[i] = ToByte(sum[i]);
    }
    return result;
}
