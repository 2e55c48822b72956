// From the records of a touch panel to the widget that they are delivered to. A packet is what a panel sends for each
// step of a finger: two positions and a report, in three records.
// nsPerEvent: of a packet, with its part of the reads. Allocations: by C++ code, over the whole run.

#include "BenchStage.h"
#include "Counters.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <linux/input.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <vector>

namespace
{

using Gfx::Managers::CInputManager;

int s_events = 0;

/// Notes that an event has arrived.
class CReceiver : public Bench::CBlock
{
public:
    using CBlock::CBlock;
    void MouseEvent(Gfx::Events::EMouseEvent, int, const Gfx::Common::CPoint&, bool) override { ++s_events; }
};

/// A panel whose node is a pipe.
class CPipePanel : public CInputManager
{
public:
    explicit CPipePanel(EDeviceKind a_kind)
    {
        std::array<int, 2> ends{};
        Bench::Require(pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) == 0, "no pipe");
        m_end = ends[1];
        UseDevice(ends[0], a_kind);
        UseCalibration(k_identity);
    }

    void Send(const std::vector<input_event>& a_records) const
    {
        const std::size_t size = a_records.size() * sizeof(input_event);
        Bench::Require(write(m_end, a_records.data(), size) == static_cast<ssize_t>(size), "the pipe is full");
    }

private:
    int m_end = -1;
};

std::vector<input_event> Packet(int a_x, int a_y)
{
    std::vector<input_event> records(3);
    records[0].type = EV_ABS;
    records[0].code = ABS_X;
    records[0].value = a_x;
    records[1].type = EV_ABS;
    records[1].code = ABS_Y;
    records[1].value = a_y;
    records[2].type = EV_SYN;
    return records;
}

/// A finger that moves over one of 100 widgets. The main loop is asked for each packet, or a_packets are read at once.
void Drag(benchmark::State& a_state, int a_packets, bool a_byMainLoop)
{
    // Lives on, as input managers do.
    static auto& s_panel = *new CPipePanel(CInputManager::edkSTMPE610);
    Bench::WidgetPtr root(new Bench::CBlock("root", 0, 0, 800, 480));
    for (int i = 0; i < 100; ++i)
    {
        root->AddChild(Bench::WidgetPtr(new CReceiver("receiver", i % 10 * 80, i / 10 * 48, 80, 48)));
    }
    Bench::Widgets().AddWidget(root);
    Bench::PaintStage();
    s_panel.MouseButton(true);
    s_panel.MousePosition({20, 20});

    std::vector<input_event> records;
    for (int i = 0; i < a_packets; ++i)
    {
        const std::vector<input_event> packet = Packet(20 + i % 40, 20);
        records.insert(records.end(), packet.begin(), packet.end());
    }
    const int before = s_events;
    const long allocations = Bench::Counters().allocations;
    double seconds = 0;
    for (auto _ : a_state)
    {
        s_panel.Send(records);
        const auto start = std::chrono::steady_clock::now();
        if (a_byMainLoop)
        {
            for (const int arrived = s_events; s_events == arrived;)
            {
                g_main_context_iteration(nullptr, FALSE);
            }
        }
        else
        {
            s_panel.Read();
        }
        const double taken = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        a_state.SetIterationTime(taken);
        seconds += taken;
    }
    const auto events = static_cast<double>(a_state.iterations()) * a_packets;
    a_state.counters["Allocations"] = static_cast<double>(Bench::Counters().allocations - allocations);
    a_state.counters["nsPerEvent"] = seconds / events * 1e9;
    Bench::Require(s_events - before == static_cast<int>(events), "events were lost");
    s_panel.MouseButton(false);
    s_panel.MousePosition({20, 20});
    Bench::Widgets().DestroyWidget(root.Get());
    root = Bench::WidgetPtr();
    Bench::Widgets().GarbageCollect();
}

void ReadOnePacket(benchmark::State& a_state)
{
    Drag(a_state, 1, false);
}

void ReadHundredPackets(benchmark::State& a_state)
{
    Drag(a_state, 100, false);
}

void OnePacketThroughTheMainLoop(benchmark::State& a_state)
{
    Drag(a_state, 1, true);
}

BENCHMARK(ReadOnePacket)->UseManualTime();
BENCHMARK(ReadHundredPackets)->UseManualTime();
BENCHMARK(OnePacketThroughTheMainLoop)->UseManualTime();

} // namespace
