#include "Managers/Textures/PageAhead.h"

#include "Managers/Textures/ImageFile.h"
#include "Platform/GL/PngReader.h"

#include <pugixml.hpp>

#include <utility>

namespace Gfx::Managers::detail
{

namespace
{

/// The file of a table's first page; empty if there is none.
std::string FirstPage(const std::string& a_table)
{
    pugi::xml_document document;
    if (!document.load_file(a_table.c_str()))
    {
        return {};
    }
    const pugi::xml_node root = document.document_element();
    const pugi::xml_node textures = document.child("Textures") ? document.child("Textures") : root.child("Textures");
    return textures.child("Image").attribute("file").value();
}

} // namespace

CPageAhead::~CPageAhead()
{
    Forget();
}

void CPageAhead::Begin(const std::string& a_basePath)
{
    Forget();
    m_directory = a_basePath + k_pageFolder;
    // Null where no thread can be had.
    m_thread = g_thread_try_new("gfx page", &CPageAhead::Read, this, nullptr);
}

std::optional<Platform::CImage> CPageAhead::Take(const std::string& a_path)
{
    if (m_thread != nullptr)
    {
        g_thread_join(std::exchange(m_thread, nullptr));
    }
    return a_path == m_path ? std::exchange(m_image, std::nullopt) : std::nullopt;
}

void CPageAhead::Forget()
{
    static_cast<void>(Take({}));
    m_path.clear();
    m_image.reset();
}

gpointer CPageAhead::Read(gpointer a_self)
{
    auto& self = *static_cast<CPageAhead*>(a_self);
    const std::string file = FirstPage(self.m_directory + k_pageTable);
    if (!file.empty())
    {
        self.m_path = self.m_directory + file;
        std::string error;
        self.m_image = Platform::ReadPng(self.m_path, k_longestSide, error);
    }
    if (self.m_image)
    {
        self.m_image->Premultiply();
    }
    return nullptr;
}

CPageAhead& PageAhead()
{
    static CPageAhead s_pageAhead;
    return s_pageAhead;
}

} // namespace Gfx::Managers::detail
