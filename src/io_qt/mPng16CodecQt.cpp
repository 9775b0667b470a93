// 16-bit greyscale PNG height maps through QImage (QtGui only). Any PNG the reader decodes is
// taken: 8-bit greys are widened (value * 257), colours become their grey.
#include "mHeightMap16.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>

namespace {

Grey16ReadResult DecodePng16(std::span<const std::uint8_t> bytes, Grey16Image& image) {
    const QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                    static_cast<qsizetype>(bytes.size()));
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    // The header's size is checked before a pixel is decoded.
    const QSize size = reader.size();
    if (!size.isValid()) return {false, "the file is not a PNG picture"};
    Grey16ReadResult fits = CheckGrey16Size(size.width(), size.height());
    if (!fits) return fits;
    QImage picture;
    if (!reader.read(&picture) || picture.isNull()) return {false, "the PNG picture is damaged"};
    picture = picture.convertToFormat(QImage::Format_Grayscale16);
    Grey16Image decoded;
    decoded.width = picture.width();
    decoded.height = picture.height();
    decoded.values.reserve(static_cast<std::size_t>(decoded.width) *
                           static_cast<std::size_t>(decoded.height));
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const quint16*>(picture.constScanLine(y));
        decoded.values.insert(decoded.values.end(), line, line + picture.width());
    }
    image = std::move(decoded);
    return {true, {}};
}

std::vector<std::uint8_t> EncodePng16(const Grey16Image& image) {
    if (image.Empty()) return {};
    QImage picture(image.width, image.height, QImage::Format_Grayscale16);
    if (picture.isNull()) return {};
    for (int y = 0; y < image.height; ++y) {
        auto* line = reinterpret_cast<quint16*>(picture.scanLine(y));
        for (int x = 0; x < image.width; ++x)
            line[x] = image.At(y, x);
    }
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    if (!writer.write(picture)) return {};
    return {data.begin(), data.end()};
}

} // namespace

void InstallQtPng16Codec() {
    SetPng16Codec(DecodePng16, EncodePng16);
}
