#include "Report.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <regex>

namespace Soak
{

namespace
{

constexpr std::size_t k_steps = 60;
/// In seconds; most steps take less than one.
constexpr unsigned int k_longestStep = 180;
/// What has been heard and found good is forgotten beyond this size.
constexpr off_t k_heard = 1 << 20;

/// Plain characters, as a signal handler reads them.
std::array<std::array<char, 160>, k_steps> s_steps{};
std::size_t s_count = 0;
std::array<char, 80> s_head{};
int s_out = STDOUT_FILENO;
int s_streams = -1;
off_t s_read = 0;
bool s_mayEnd = false;

void Write(const char* a_text)
{
    static_cast<void>(!write(s_out, a_text, std::strlen(a_text)));
}

/// Also from a signal handler.
void WriteSteps()
{
    for (std::size_t i = s_count > k_steps ? s_count - k_steps : 0; i < s_count; ++i)
    {
        Write(s_steps[i % k_steps].data());
        Write("\n");
    }
    // The last words, such as an assertion's.
    std::array<char, 2048> text{};
    const off_t end = lseek(s_streams, 0, SEEK_CUR);
    const off_t start = end > static_cast<off_t>(text.size()) ? end - static_cast<off_t>(text.size()) + 1 : 0;
    const ssize_t size = pread(s_streams, text.data(), text.size() - 1, start);
    Write("its output ended with:\n");
    static_cast<void>(!write(s_out, text.data(), size > 0 ? static_cast<std::size_t>(size) : 0));
    Write(s_head.data());
}

void OnSignal(int a_signal)
{
    Write("soak: FAILED: ");
    Write(a_signal == SIGALRM ? "a step takes more than three minutes" : strsignal(a_signal));
    Write("\nthe last steps were:\n");
    WriteSteps();
    std::signal(a_signal, SIG_DFL);
    std::raise(a_signal);
}

void OnExit()
{
    if (!s_mayEnd)
    {
        Write("soak: FAILED: something has ended the process\nthe last steps were:\n");
        WriteSteps();
        _exit(1);
    }
}

bool IsExpected(const std::string& a_line, bool a_isDamaged)
{
    static const std::regex s_usual(R"(\d+\.\d+\. [01] \(.*|)"
                                    R"(\d+\.\d+\. 3 \(Gfx\) : (Initialising .*|CLayoutManager::ApplyLayout .*|)"
                                    R"(CTexturePage::RetrieveElement - texture not loaded - loading now) *|)"
                                    R"(COnScreenKeyboard::Text: .*|)"
                                    R"(Read \d+ bytes of data from .*\.bobj|)"
                                    R"(unable to find touchscreen device|)"
                                    R"(Fontconfig error: No writable cache directories|)"
                                    R"(CInputManager::SetCalibrationPoints: .*)");
    // Whatever the library has to say of files, but nothing of GLib's.
    static const std::regex s_damage(R"(\d+\.\d+\. [23] \(\w+\) : .*|)"
                                     R"(error opening png file: .*|)"
                                     R"(C\w+::\w+: (could not find|widget not found|Flag not found).*)");
    return std::regex_match(a_line, s_usual) || (a_isDamaged && std::regex_match(a_line, s_damage));
}

} // namespace

void StartReport(unsigned long a_seed)
{
    std::snprintf(s_head.data(), s_head.size(), "soak: to see it again: --seed %lu\n", a_seed);
    s_out = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    s_streams = memfd_create("output", MFD_CLOEXEC);
    std::fflush(stdout);
    dup2(s_streams, STDOUT_FILENO);
    dup2(s_streams, STDERR_FILENO);
    // Otherwise what is written to the one could end up in the middle of a line of the other.
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGALRM})
    {
        std::signal(signal, OnSignal);
    }
    std::atexit(OnExit);
}

void EndReport()
{
    s_mayEnd = true;
    alarm(0);
}

void Say(const std::string& a_line)
{
    Write((a_line + '\n').c_str());
}

void NoteStep(const std::string& a_step)
{
    alarm(k_longestStep);
    std::snprintf(s_steps[s_count % k_steps].data(), s_steps[0].size(), "%zu: %s", s_count, a_step.c_str());
    ++s_count;
}

void Fail(const std::string& a_what)
{
    Write(("soak: FAILED: " + a_what + "\nthe last steps were:\n").c_str());
    std::fflush(stdout);
    WriteSteps();
    _exit(1);
}

void CheckOutput(bool a_isDamaged)
{
    std::fflush(stdout);
    std::cout.flush();
    const off_t end = lseek(s_streams, 0, SEEK_CUR);
    if (end == s_read)
    {
        return;
    }
    std::string text(static_cast<std::size_t>(end - s_read), '\0');
    static_cast<void>(!pread(s_streams, text.data(), text.size(), s_read));
    s_read = end;
    for (std::size_t start = 0; start < text.size();)
    {
        const std::size_t length = std::min(text.find('\n', start), text.size()) - start;
        const std::string line = text.substr(start, length);
        if (!line.empty() && !IsExpected(line, a_isDamaged))
        {
            Fail("unexpected output: " + line);
        }
        start += length + 1;
    }
    if (s_read > k_heard)
    {
        static_cast<void>(!ftruncate(s_streams, 0));
        lseek(s_streams, 0, SEEK_SET);
        s_read = 0;
    }
}

std::string& PictureFolder()
{
    static std::string s_folder = "./";
    return s_folder;
}

} // namespace Soak
