#include "platform/rtmidi/JackSystem.h"

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/ProductName.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

namespace velluto {

namespace {

constexpr const char *kWatcherName = "Velluto";

// RtMidi's queue to a JACK port holds 16384 bytes, and a write to a full one waits for ever. A third of it may be
// filled in one period: the queue is emptied once a period, but not at the moment at which the period is counted.
constexpr std::size_t kQueueShare = 16384 / 3;
constexpr std::size_t kQueueOverhead = sizeof(int); // what the queue adds to a message

// A connection counts from one of the next periods on, and what is sent before that is lost; what is handed over is sent in
// the next period and received in the same or in the one after.
constexpr std::uint32_t kPeriodsToPass = 3;
constexpr std::chrono::milliseconds kLongestDelay(1000); // of a server that works
constexpr std::chrono::microseconds kLookEvery(500);

void Quiet(const char * /*text*/) {}

// Takes a list of JACK's: the program's own ports, or all others.
std::vector<std::string> Take(const char **list, bool own)
{
    const std::unique_ptr<const char *, decltype(&jack_free)> ports(list, &jack_free);
    std::vector<std::string> names;
    for (std::size_t i = 0; list != nullptr && list[i] != nullptr; ++i) {
        if (IsOwnPort(list[i]) == own) {
            names.emplace_back(list[i]);
        }
    }
    return names;
}

} // namespace

JackSystem::JackSystem()
{
    jack_set_error_function(&Quiet);
    jack_set_info_function(&Quiet);
}

JackSystem::~JackSystem()
{
    CloseClient();
}

void JackSystem::CloseClient()
{
    if (client_ != nullptr) {
        jack_client_close(client_);
        client_ = nullptr;
    }
    active_ = false;
    alive_ = false;
}

// JACK's library crashes when a client of a dead server is closed after one of a new server has been opened: hence the
// rule that nothing of the old one may be open.
bool JackSystem::Connect()
{
    const std::lock_guard lock(mutex_);
    if (alive_) {
        return true;
    }
    CloseClient();
    client_ = jack_client_open(kWatcherName, JackNoStartServer, nullptr);
    if (client_ == nullptr) {
        return false;
    }
    alive_ = true;
    jack_on_shutdown(
        client_,
        [](void *self) {
            static_cast<JackSystem *>(self)->alive_ = false;
            static_cast<JackSystem *>(self)->changed();
        },
        this);
    // A port whose client leaves is told of while it is still listed, and gone without another word when the graph changes.
    jack_set_port_registration_callback(
        client_, [](jack_port_id_t, int, void *self) { static_cast<JackSystem *>(self)->changed(); }, this);
    jack_set_client_registration_callback(
        client_, [](const char *, int, void *self) { static_cast<JackSystem *>(self)->changed(); }, this);
    jack_set_graph_order_callback(
        client_,
        [](void *self) {
            static_cast<JackSystem *>(self)->changed();
            return 0;
        },
        this);
    jack_set_process_callback(
        client_,
        [](jack_nframes_t frames, void *self) {
            static_cast<JackSystem *>(self)->Process(frames);
            return 0;
        },
        this);
    return alive_;
}

bool JackSystem::Activate()
{
    const std::lock_guard lock(mutex_);
    if (alive_ && !active_) {
        active_ = jack_activate(client_) == 0;
        if (!active_) {
            CloseClient();
        }
    }
    return alive_;
}

void JackSystem::Process(jack_nframes_t frames)
{
    cycles_.fetch_add(1, std::memory_order_relaxed);
    if (const std::unique_lock lock(sourceLock_, std::try_to_lock); lock && source_ != nullptr) {
        source_->Process(frames);
    }
}

std::unique_ptr<SourcePort> JackSystem::MakeSource()
{
    const std::lock_guard lock(mutex_);
    if (!alive_ || source_ != nullptr) {
        return nullptr;
    }
    jack_port_t *const port = jack_port_register(client_, kPlayerPortName, JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    if (port == nullptr) {
        return nullptr;
    }
    JackSource::Host &host = *this;
    auto source = std::make_unique<JackSource>(host, client_, port);
    const std::lock_guard sourceLock(sourceLock_);
    source_ = source.get();
    return source;
}

void JackSystem::Forget(JackSource &source)
{
    const std::lock_guard lock(sourceLock_);
    if (source_ == &source) {
        source_ = nullptr;
    }
}

std::vector<std::string> JackSystem::Names(PortKind kind)
{
    const std::lock_guard lock(mutex_);
    if (client_ == nullptr || !alive_) {
        return {};
    }
    const unsigned long direction = kind == PortKind::Output ? JackPortIsInput : JackPortIsOutput;
    return Take(jack_get_ports(client_, nullptr, JACK_DEFAULT_MIDI_TYPE, direction), false);
}

bool JackSystem::HasRoom(SendBudget &budget, std::size_t messageBytes) const
{
    const std::uint32_t cycle = cycles_.load(std::memory_order_relaxed);
    if (cycle != budget.cycle) {
        budget = {cycle, 0};
    }
    if (budget.bytes + messageBytes + kQueueOverhead > kQueueShare) {
        return false;
    }
    budget.bytes += messageBytes + kQueueOverhead;
    return true;
}

std::chrono::steady_clock::time_point JackSystem::EndOfWait(std::uint32_t periods)
{
    const std::lock_guard lock(mutex_);
    const auto end = std::chrono::steady_clock::now() + kLongestDelay;
    if (client_ == nullptr || !alive_) {
        return end;
    }
    return end +
           periods * std::chrono::microseconds(std::uint64_t{1000000} * jack_get_buffer_size(client_) / jack_get_sample_rate(client_));
}

// As the period that runs has them, and not as they have been asked for.
std::vector<std::string> JackSystem::Feeders(const std::string &portName)
{
    const std::lock_guard lock(mutex_);
    if (client_ == nullptr || !alive_) {
        return {};
    }
    jack_port_t *const port = jack_port_by_name(client_, portName.c_str());
    return port == nullptr ? std::vector<std::string>() : Take(jack_port_get_all_connections(client_, port), true);
}

void JackSystem::Settle(const std::string &portName, const std::vector<std::string> &before)
{
    const auto isNew = [&before](const std::string &name) { return std::ranges::find(before, name) == before.end(); };
    const auto end = EndOfWait(kPeriodsToPass);
    while (alive_ && std::ranges::none_of(Feeders(portName), isNew) && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kLookEvery);
    }
}

void JackSystem::LetPass()
{
    const std::uint32_t begin = cycles_.load(std::memory_order_relaxed);
    const auto end = EndOfWait(kPeriodsToPass);
    while (alive_ && cycles_.load(std::memory_order_relaxed) - begin < kPeriodsToPass && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kLookEvery);
    }
}

} // namespace velluto
