#pragma once

#include <glib.h>

#include <memory>
#include <string>

class CConfig;

/// Reads a configuration when it begins, and writes it when it ends, if anything was set. The file is replaced as a
/// whole and only once the new one is on the disk, with what other sections hold and with its comments; if that fails,
/// it stays as it was.
///
/// A file that isn't there is empty. One that can't be read, or not understood, costs a log line and is empty too: the
/// former is left alone, the latter replaced when something is set.
class CConfigTransaction
{
public:
    /// a_config must outlive the transaction; a null one is empty, and what is set in it is lost.
    explicit CConfigTransaction(const CConfig* a_config);
    ~CConfigTransaction();
    CConfigTransaction(const CConfigTransaction&) = delete;
    CConfigTransaction& operator=(const CConfigTransaction&) = delete;

    // a_fallback if there is no such key, or if it has a value of another type: that costs a log line, the first time.
    // The last argument belongs to the signature, and has no meaning here.

    [[nodiscard]] double GetDouble(const std::string& a_section, const std::string& a_key, double a_fallback, bool);
    [[nodiscard]] bool GetBool(const std::string& a_section, const std::string& a_key, bool a_fallback, bool);

    void SetDouble(const std::string& a_section, const std::string& a_key, double a_value);
    void SetBool(const std::string& a_section, const std::string& a_key, bool a_value);

private:
    struct SFree
    {
        void operator()(GKeyFile* a_values) const { g_key_file_unref(a_values); }
    };

    /// Whether the last look-up has given a value. Takes a_error over.
    [[nodiscard]] bool IsGiven(GError* a_error);
    void ReportOnce(const char* a_problem, const char* a_reason);
    void Write() const;

    const CConfig* m_config;
    std::unique_ptr<GKeyFile, SFree> m_values;
    bool m_isReadable = true;
    bool m_isChanged = false;
    bool m_isReported = false;
};
