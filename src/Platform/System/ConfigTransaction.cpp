#include "Platform/System/ConfigTransaction.h"

#include "Core/Logging/Logger.h"
#include "Platform/System/Config.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace
{

/// Closes it at the end.
class CDescriptor
{
public:
    explicit CDescriptor(int a_descriptor) : m_descriptor(a_descriptor) {}
    ~CDescriptor()
    {
        if (m_descriptor != -1)
        {
            close(m_descriptor);
        }
    }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    [[nodiscard]] int Get() const { return m_descriptor; }

private:
    int m_descriptor;
};

bool WriteAll(int a_descriptor, std::string_view a_text)
{
    while (!a_text.empty())
    {
        const ssize_t written = write(a_descriptor, a_text.data(), a_text.size());
        if (written < 0 && errno != EINTR)
        {
            return false;
        }
        a_text.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
    }
    return true;
}

/// Puts a_text in a file's place: after a crash at any moment, the one or the other is there whole. False, with errno
/// set, if that fails.
bool Replace(const std::string& a_path, std::string_view a_text)
{
    const std::string folder = std::filesystem::path(a_path).parent_path().string();
    if (!folder.empty() && g_mkdir_with_parents(folder.c_str(), 0755) != 0)
    {
        return false;
    }
    std::string temporary = a_path + ".XXXXXX";
    const CDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
    if (file.Get() == -1)
    {
        return false;
    }
    struct stat old = {};
    const mode_t mode = stat(a_path.c_str(), &old) == 0 ? old.st_mode & 07777 : 0644;
    if (!WriteAll(file.Get(), a_text) || fchmod(file.Get(), mode) != 0 || fsync(file.Get()) != 0 ||
        std::rename(temporary.c_str(), a_path.c_str()) != 0)
    {
        const int error = errno;
        unlink(temporary.c_str());
        errno = error;
        return false;
    }
    // The new name is on the disk when its folder is.
    const CDescriptor directory(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return directory.Get() != -1 && fsync(directory.Get()) == 0;
}

void Report(const char* a_problem, const std::string& a_path, const char* a_reason)
{
    using Core::Logging::CLogger;
    Core::Patterns::StaticSingleton<CLogger>::ref().Log(Core::Logging::elMessage, "CConfigTransaction", "%s %s: %s",
                                                        a_problem, a_path, a_reason);
}

} // namespace

CConfigTransaction::CConfigTransaction(const CConfig* a_config) : m_config(a_config), m_values(g_key_file_new())
{
    if (m_config == nullptr)
    {
        return;
    }
    // To open a pipe may take for ever; and a device must not be replaced by a file.
    std::error_code statusError;
    const std::filesystem::file_status status = std::filesystem::status(m_config->Path(), statusError);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    {
        m_isReadable = false;
        ReportOnce("Unable to read", "it isn't a regular file");
        return;
    }
    GError* error = nullptr;
    if (g_key_file_load_from_file(m_values.get(), m_config->Path().c_str(),
                                  GKeyFileFlags(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS),
                                  &error) != FALSE)
    {
        return;
    }
    if (!g_error_matches(error, G_FILE_ERROR, G_FILE_ERROR_NOENT))
    {
        m_isReadable = error->domain == G_KEY_FILE_ERROR;
        ReportOnce("Unable to read", error->message);
    }
    g_error_free(error);
    // It may hold what stands before the damage.
    m_values.reset(g_key_file_new());
}

CConfigTransaction::~CConfigTransaction()
{
    if (m_isChanged && m_config != nullptr)
    {
        Write();
    }
}

double CConfigTransaction::GetDouble(const std::string& a_section, const std::string& a_key, double a_fallback, bool)
{
    GError* error = nullptr;
    const double value = g_key_file_get_double(m_values.get(), a_section.c_str(), a_key.c_str(), &error);
    return IsGiven(error) ? value : a_fallback;
}

bool CConfigTransaction::GetBool(const std::string& a_section, const std::string& a_key, bool a_fallback, bool)
{
    GError* error = nullptr;
    const bool value = g_key_file_get_boolean(m_values.get(), a_section.c_str(), a_key.c_str(), &error) != FALSE;
    return IsGiven(error) ? value : a_fallback;
}

void CConfigTransaction::SetDouble(const std::string& a_section, const std::string& a_key, double a_value)
{
    g_key_file_set_double(m_values.get(), a_section.c_str(), a_key.c_str(), a_value);
    m_isChanged = true;
}

void CConfigTransaction::SetBool(const std::string& a_section, const std::string& a_key, bool a_value)
{
    g_key_file_set_boolean(m_values.get(), a_section.c_str(), a_key.c_str(), a_value ? TRUE : FALSE);
    m_isChanged = true;
}

bool CConfigTransaction::IsGiven(GError* a_error)
{
    if (a_error == nullptr)
    {
        return true;
    }
    if (!g_error_matches(a_error, G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_GROUP_NOT_FOUND) &&
        !g_error_matches(a_error, G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_KEY_NOT_FOUND))
    {
        ReportOnce("Damaged value in", a_error->message);
    }
    g_error_free(a_error);
    return false;
}

void CConfigTransaction::ReportOnce(const char* a_problem, const char* a_reason)
{
    if (!m_isReported)
    {
        Report(a_problem, m_config->Path(), a_reason);
    }
    m_isReported = true;
}

void CConfigTransaction::Write() const
{
    if (!m_isReadable)
    {
        Report("Unable to write", m_config->Path(), "it could not be read");
        return;
    }
    gsize length = 0;
    gchar* const text = g_key_file_to_data(m_values.get(), &length, nullptr);
    // Where a link leads to is replaced, not the link.
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(m_config->Path(), error);
    if (!Replace(error ? m_config->Path() : target.string(), {text, length}))
    {
        Report("Unable to write", m_config->Path(), g_strerror(errno));
    }
    g_free(text);
}
