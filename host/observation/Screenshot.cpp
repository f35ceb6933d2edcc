#include "host/observation/Screenshot.h"

#include "host/drawing/FileError.h"
#include "host/observation/Deflate.h"
#include "library/system/Handles.h"

namespace host::observation {

namespace {

void appendWord(std::string& bytes, std::uint32_t word)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(word >> shift & 0xFF);
}

void appendChunk(std::string& png, const std::string& sType, const std::string& data)
{
    appendWord(png, static_cast<std::uint32_t>(data.size()));
    png += sType + data;
    appendWord(png, crc32(sType + data));
}

// Each row as its difference from the row above: equal rows become zeros.
std::string filtered(const Picture& picture)
{
    const std::size_t stride = static_cast<std::size_t>(picture.width) * 3;
    std::string rows;
    rows.reserve((stride + 1) * static_cast<std::size_t>(picture.height));
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        rows += '\x02';
        for (std::size_t x = 0; x < stride; ++x) {
            const int above = y == 0 ? 0 : picture.pixels[(y - 1) * stride + x];
            rows += static_cast<char>(picture.pixels[y * stride + x] - above);
        }
    }
    return rows;
}

}  // namespace

Picture capture(HWND window)
{
    RECT rect;
    ::GetWindowRect(window, &rect);
    Picture picture;
    picture.width = rect.right - rect.left;
    picture.height = rect.bottom - rect.top;

    const HDC screen = ::GetDC(nullptr);
    const HDC memory = ::CreateCompatibleDC(screen);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    UniqueBitmap bitmap(::CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const HGDIOBJ old = ::SelectObject(memory, bitmap.get());
    ::BitBlt(memory, 0, 0, picture.width, picture.height, screen, rect.left, rect.top, SRCCOPY);
    ::GdiFlush();
    const auto* const source = static_cast<const std::uint8_t*>(bits);
    const std::size_t count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.pixels.resize(count * 3);
    for (std::size_t i = 0; bits != nullptr && i < count; ++i)
        for (std::size_t channel = 0; channel < 3; ++channel)
            picture.pixels[i * 3 + channel] = source[i * 4 + 2 - channel];
    ::SelectObject(memory, old);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
    return picture;
}

std::string toPng(const Picture& picture)
{
    std::string header;
    appendWord(header, static_cast<std::uint32_t>(picture.width));
    appendWord(header, static_cast<std::uint32_t>(picture.height));
    header += std::string("\x08\x02\x00\x00\x00", 5);  // 8 bits a channel, red green blue
    std::string png = "\x89PNG\r\n\x1a\n";
    appendChunk(png, "IHDR", header);
    appendChunk(png, "IDAT", zlibCompressed(filtered(picture)));
    appendChunk(png, "IEND", {});
    return png;
}

void writePng(const Picture& picture, const std::string& sPath)
{
    const std::string png = toPng(picture);
    const UniqueHandle file(
        ::CreateFileA(sPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file || !::WriteFile(file.get(), png.data(), static_cast<DWORD>(png.size()), &written, nullptr))
        throw FileError(sPath, 0, FileError::systemReason(::GetLastError()));
}

}  // namespace host::observation
