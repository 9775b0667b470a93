// make-textures FOLDER: paints every terrain, detail and water texture of textures/TextureList.h
// and saves each as a JPEG file in FOLDER. The output depends on nothing but this program.
#include "FileIO.h"
#include "Recipes.h"
#include "TextureList.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace {

int ToByte(float value) {
    return static_cast<int>(std::lrint(std::clamp(value, 0.0f, 1.0f) * 255.0f));
}

QImage ToImage(const Canvas& canvas) {
    QImage image(canvas.Size(), canvas.Size(), QImage::Format_RGB888);
    for (int y = 0; y < canvas.Size(); ++y) {
        uchar* pixel = image.scanLine(y);
        for (int x = 0; x < canvas.Size(); ++x, pixel += 3) {
            const Rgb& c = canvas.At(x, y);
            pixel[0] = static_cast<uchar>(ToByte(c.r));
            pixel[1] = static_cast<uchar>(ToByte(c.g));
            pixel[2] = static_cast<uchar>(ToByte(c.b));
        }
    }
    return image;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-textures FOLDER\n");
        return 2;
    }
    const QString folder = QFile::decodeName(argv[1]);
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "make-textures: cannot create %s\n", argv[1]);
        return 1;
    }
    for (const TextureEntry& entry : kTextures) {
        const QString path = QDir(folder).filePath(
            QString::fromLatin1(entry.fileName.data(), static_cast<int>(entry.fileName.size())));
        const QImage image = ToImage(PaintTexture(entry.recipe, entry.size));
        // Encoded in memory and written as every file of the program is, so an interrupted build
        // leaves no half-written picture behind.
        QByteArray encoded;
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        std::string error;
        if (!image.save(&buffer, "JPG", 90) ||
            !WriteFileAtomically(QFile::encodeName(path).toStdString(), encoded.toStdString(), error)) {
            std::fprintf(stderr, "make-textures: cannot write %s %s\n", qPrintable(path), error.c_str());
            return 1;
        }
    }
    return 0;
}
