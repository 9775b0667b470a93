// GIF, JPEG and PNG pictures through QImage (QtGui only); bitmaps are read by io itself.
#include "mPictureLoader.h"

#include <QFile>
#include <QImage>
#include <QImageReader>

#include <algorithm>

namespace {

bool DecodePictureWithQt(const std::string& path, cDIBSection& image) {
    QImageReader reader(QFile::decodeName(QByteArray::fromStdString(path)));
    // Refuse absurd sizes from the header before the pixels are decoded.
    // A small compressed file may claim a huge picture: the pixels it claims are limited like the
    // bitmap's own, and the decoder may allocate no more.
    const QSize size = reader.size();
    if (size.isValid() &&
        (size.width() > cDIBSection::kMaxSide || size.height() > cDIBSection::kMaxSide ||
         std::size_t(size.width()) * std::size_t(size.height()) * 3 > cDIBSection::kMaxBytes))
        return false;
    reader.setAllocationLimit(static_cast<int>(cDIBSection::kMaxBytes >> 20) * 4 / 3 + 1);
    QImage picture;
    if (!reader.read(&picture) || picture.isNull()) return false;
    // Pixels that are partly transparent lose their alpha, as they would drawn on a black bitmap.
    picture = picture.convertToFormat(QImage::Format_RGB888);
    if (!image.Create(picture.width(), picture.height())) return false;
    // QImage rows run top-down in red-green-blue; the bitmap's rows run bottom-up in blue-green-red.
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* in = picture.constScanLine(y);
        std::uint8_t* out = image.Row(picture.height() - 1 - y);
        for (int x = 0; x < picture.width(); ++x, in += 3, out += 3) {
            out[0] = in[2];
            out[1] = in[1];
            out[2] = in[0];
        }
    }
    return true;
}

} // namespace

void InstallQtPictureDecoder() {
    SetPictureDecoder(DecodePictureWithQt);
}
