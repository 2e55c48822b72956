#pragma once

#include "Platform/GL/Image.h"

#include <png.h>

#include <cstdio>
#include <optional>
#include <string>

namespace Platform
{

/// libpng's own structures for one file, freed on every way out. An error in libpng jumps over destructors, so each
/// operation that calls it has no objects of its own.
class CPngReader
{
public:
    /// a_error takes the text of an error: one of libpng's, or that a side of the image is longer.
    CPngReader(std::string& a_error, int a_longestSide);
    ~CPngReader();
    CPngReader(const CPngReader&) = delete;
    CPngReader& operator=(const CPngReader&) = delete;

    [[nodiscard]] bool IsMade() const { return m_png != nullptr; }
    [[nodiscard]] bool HasInfo() const { return m_info != nullptr && m_endInfo != nullptr; }

    [[nodiscard]] bool ReadInfo(std::FILE* a_file);

    [[nodiscard]] int Width() const { return static_cast<int>(png_get_image_width(m_png, m_info)); }
    [[nodiscard]] int Height() const { return static_cast<int>(png_get_image_height(m_png, m_info)); }

    /// Whether its pixels are stored as red, green and blue of 8 bits each, with alpha or without.
    [[nodiscard]] bool IsTrueColour() const;
    [[nodiscard]] bool HasAlpha() const { return png_get_color_type(m_png, m_info) == PNG_COLOR_TYPE_RGB_ALPHA; }

    /// Whatever it is stored as, its pixels are read as true colour: with alpha if some may be transparent. Of 16 bits
    /// the upper 8 count. What is told of it from now on is what is read.
    [[nodiscard]] bool ConvertToTrueColour();

    /// Reads all that is left of the file. a_rows has a pointer for each row.
    [[nodiscard]] bool ReadPixels(png_bytepp a_rows);

private:
    [[nodiscard]] bool IsSmallEnough();

    std::string& m_error;
    int m_longestSide;
    png_structp m_png;
    png_infop m_info = nullptr;
    png_infop m_endInfo = nullptr;
};

/// Reads a PNG file of any kind into pixels of three bytes, or of four with alpha, which isn't multiplied in. None for
/// one that is damaged or has a side beyond a_longestSide, and a_error says why; it is empty if that isn't a PNG file.
[[nodiscard]] std::optional<CImage> ReadPng(const std::string& a_path, int a_longestSide, std::string& a_error);

} // namespace Platform
