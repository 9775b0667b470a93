#pragma once
// Loading pictures into a cDIBSection. Targa files (".tga") and bitmaps (files beginning "BM") are
// read by our own code; GIF, JPEG and PNG pictures go through a decoder that the program registers at
// start-up, so that this library needs no image toolkit. The editor installs the Qt decoder of lw_io_qt.

#include "cDIBSection.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>

// Decodes the picture file at path into image (24-bit, bottom-up); false when it cannot.
using PictureDecoder = std::function<bool(const std::string& path, cDIBSection& image)>;

// Registers the decoder for every picture that is not a Targa file; an empty one removes it.
void SetPictureDecoder(PictureDecoder decoder);

// Registers the QImage-based decoder. Defined in lw_io_qt (mPictureDecoderQt.cpp): only
// programs that link that library may call it.
void InstallQtPictureDecoder();

// Loads the picture at path into image. Fails for an empty path or one ending in "\" or "/";
// when the last three characters, lower-cased, are "tga" the Targa reader is used, for a file that
// begins "BM" the bitmap reader (mBitmapFile.h), otherwise the registered decoder (failing when there is
// none). image is replaced only on success.
bool LoadPictureFile(const std::string& path, cDIBSection& image);

// Targa reader: uncompressed (type 2) and run-length encoded (type 10) true-colour pictures of
// 24 or 32 bits per pixel (the fourth byte of a 32-bit pixel is dropped). Every read is checked
// against the bytes present; anything else, truncated data and sizes cDIBSection refuses make it
// return false with image untouched.
bool DecodeTarga(std::span<const std::uint8_t> bytes, cDIBSection& image);
bool LoadTargaFile(const std::string& path, cDIBSection& image);
