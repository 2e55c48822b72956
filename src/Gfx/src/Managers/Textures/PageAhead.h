#pragma once

#include "Platform/GL/Image.h"

#include <glib.h>

#include <optional>
#include <string>

namespace Gfx::Managers::detail
{

/// Where the pages of a data directory are, below it, and the table of them there.
constexpr const char* k_pageFolder = "TextureMaps/";
constexpr const char* k_pageTable = "TextureConfig.xml";

/// Reads the first page of the table of textures on a thread of its own, while the display is opened: that takes about
/// as long, and is needed for the first frame just as well. Nothing is reported; who finds no pixels here reads the
/// file himself, and meets whatever is wrong with it.
class CPageAhead
{
public:
    CPageAhead() = default;
    ~CPageAhead();
    CPageAhead(const CPageAhead&) = delete;
    CPageAhead& operator=(const CPageAhead&) = delete;

    /// Begins to read, instead of what was read before. a_basePath is the data directory, with a separator at its end.
    void Begin(const std::string& a_basePath);

    /// The pixels of the file, premultiplied, if it is the one that was read; once. Waits for the thread.
    [[nodiscard]] std::optional<Platform::CImage> Take(const std::string& a_path);

    /// Drops what nobody has taken.
    void Forget();

private:
    static gpointer Read(gpointer a_self);

    GThread* m_thread = nullptr;
    /// The thread's, until it has been joined.
    std::string m_directory;
    std::string m_path;
    std::optional<Platform::CImage> m_image;
};

/// The one of the start-up.
CPageAhead& PageAhead();

} // namespace Gfx::Managers::detail
