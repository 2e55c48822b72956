#pragma once

#include <string>
#include <utility>

/// Where the console keeps settings that outlive the process: a text file of sections, keys and values, which is read
/// and written through CConfigTransaction. It is /var/lib/gfx/system.conf, or what the environment variable
/// GFX_SYSTEM_CONFIG names.
class CConfig
{
public:
    /// The configuration of the whole system, to be given back with Release.
    [[nodiscard]] static CConfig* GetSystemConfig();

    CConfig(const CConfig&) = delete;
    CConfig& operator=(const CConfig&) = delete;

    virtual void Release() { delete this; }

    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    explicit CConfig(std::string a_path) : m_path(std::move(a_path)) {}
    virtual ~CConfig() = default;

    std::string m_path;
};
