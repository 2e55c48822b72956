#pragma once

#include <gio/gio.h>

#include <memory>

namespace Tool
{

/// An X server that nobody sees, with the software renderer, so that pictures don't depend on whose screen it is. It
/// ends with this object, and with the process in any case. Without Xvfb the user's display remains, if there is one.
class COwnDisplay
{
public:
    COwnDisplay();
    ~COwnDisplay();
    COwnDisplay(const COwnDisplay&) = delete;
    COwnDisplay& operator=(const COwnDisplay&) = delete;

private:
    std::unique_ptr<GSubprocess, decltype(&g_object_unref)> m_server{nullptr, g_object_unref};
};

} // namespace Tool
