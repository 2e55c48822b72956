#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Soak
{

/// A number from 0 to below a_count.
using Chance = std::function<int(int a_count)>;

/// A copy of the demo's data directory, whose files change while the program runs. Gone with the object.
class CDataCopy
{
public:
    CDataCopy();
    ~CDataCopy();
    CDataCopy(const CDataCopy&) = delete;
    CDataCopy& operator=(const CDataCopy&) = delete;

    /// With a separator at its end.
    [[nodiscard]] const std::string& Path() const { return m_path; }

    /// The paths of its layout files.
    [[nodiscard]] std::vector<std::string> Layouts() const;

    // Each says what it has done.

    /// Writes a file anew as it is.
    std::string Touch(const Chance& a_chance);
    /// Gives a file another content that is as good.
    std::string Change(const Chance& a_chance);
    /// Gives a file a content that is no good, or takes it away.
    std::string Damage(const Chance& a_chance);
    /// All files as they were at first.
    void Restore();

    [[nodiscard]] bool IsChanged() const { return !m_changed.empty(); }
    [[nodiscard]] bool IsDamaged() const { return m_isDamaged; }

private:
    [[nodiscard]] const std::string& Any(const Chance& a_chance) const;
    void Write(const std::string& a_file, const std::string& a_content);

    std::string m_path;
    std::vector<std::string> m_files;
    /// What the files were at first.
    std::map<std::string, std::string> m_contents;
    std::set<std::string> m_changed;
    bool m_isDamaged = false;
};

} // namespace Soak
