#include "platform/rtmidi/JackSystem.h"

#include "platform/rtmidi/ProductName.h"

#include <pthread.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>
#include <utility>

// Stands in for the system's where libraries ask for it. As a client opens, JACK's has all of the server's memory locked, some 100 MB,
// which the system does page by page: 9 ms in which no other thread can map anything, and the start stands still. The server itself keeps
// those pages from being swapped out, where it may. Here each is locked as it is first touched; those that have been, at once. A system
// that does not know how locks them all.
extern "C" int mlock(const void *addr, std::size_t len) noexcept
{
    const int result = ::mlock2(addr, len, MLOCK_ONFAULT);
    return result == 0 || (errno != ENOSYS && errno != EINVAL) ? result : static_cast<int>(::syscall(SYS_mlock, addr, len));
}

namespace velluto {

namespace {

// A connection counts from one of the next periods on, and what is sent before that is lost; what is handed over is sent in
// the next period and received in the same or in the one after.
constexpr std::uint32_t kPeriodsToPass = 3;
constexpr std::chrono::milliseconds kLongestDelay(1000); // of a server that works
constexpr std::chrono::microseconds kLookEvery(500);

void Quiet(const char * /*text*/) {}

// JACK ends its threads wherever they are, and a lock that they hold stays taken: until after `call` it waits.
template <typename Call>
void Whole(const Call &call)
{
    int before = 0;
    ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before);
    call();
    ::pthread_setcancelstate(before, nullptr);
}

std::vector<std::string> Take(const char **list)
{
    const std::unique_ptr<const char *, decltype(&jack_free)> ports(list, &jack_free);
    std::vector<std::string> names;
    for (std::size_t i = 0; list != nullptr && list[i] != nullptr; ++i) {
        names.emplace_back(list[i]);
    }
    return names;
}

// As JACK has it, where an input is what others send to.
unsigned long DirectionOf(PortKind kind)
{
    return kind == PortKind::Output ? JackPortIsInput : JackPortIsOutput;
}

// A connection made by its own end.
template <typename Port, typename End>
int Open(std::unique_ptr<Port> port, const std::string &other, std::unique_ptr<End> &end)
{
    const int code = port->Join(other);
    if (code == MidiCode::kSuccess) {
        end = std::move(port);
    }
    return code;
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
    jack_client_t *closing = nullptr;
    {
        const std::lock_guard lock(mutex_);
        closing = std::exchange(client_, nullptr);
        active_ = false;
        alive_ = false;
    }
    if (closing != nullptr) {
        jack_client_close(closing);
    }
}

// JACK's library crashes when a client of a dead server is closed after one of a new server has been opened: hence the
// rule that nothing of the old one may be open.
bool JackSystem::Connect()
{
    const std::lock_guard lock(requests_);
    if (alive_) {
        return true;
    }
    CloseClient();
    jack_client_t *const opened = jack_client_open(kMidiClientName, JackNoStartServer, nullptr);
    if (opened == nullptr) {
        return false;
    }
    {
        const std::lock_guard opening(mutex_);
        client_ = opened;
        alive_ = true;
    }
    SetCallbacks();
    return alive_;
}

void JackSystem::SetCallbacks()
{
    jack_on_shutdown(
        client_,
        [](void *self) {
            static_cast<JackSystem *>(self)->alive_ = false;
            static_cast<JackSystem *>(self)->TellChange();
        },
        this);
    // A port whose client leaves is told of while it is still listed, and gone without another word when the graph changes.
    jack_set_port_registration_callback(
        client_, [](jack_port_id_t, int, void *self) { static_cast<JackSystem *>(self)->TellChange(); }, this);
    jack_set_client_registration_callback(
        client_, [](const char *, int, void *self) { static_cast<JackSystem *>(self)->TellChange(); }, this);
    jack_set_graph_order_callback(
        client_,
        [](void *self) {
            static_cast<JackSystem *>(self)->TellChange();
            return 0;
        },
        this);
    jack_set_process_callback(
        client_,
        [](jack_nframes_t frames, void *self) {
            Whole([&]() { static_cast<JackSystem *>(self)->Process(frames); });
            return 0;
        },
        this);
}

void JackSystem::TellChange()
{
    Whole(changed);
}

bool JackSystem::Activate()
{
    const std::lock_guard lock(requests_);
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
    inCycle_ = true;
    for (Slots *slots : {&inputs_, &outputs_}) {
        for (Slot &slot : *slots) {
            if (JackPort *const port = slot.port.load()) {
                port->Process(slot.handle, frames);
            }
        }
    }
    inCycle_ = false;
}

jack_port_t *JackSystem::Add(JackPort &port, const char *label, JackPortFlags direction)
{
    const std::lock_guard lock(requests_);
    Slots &slots = direction == JackPortIsInput ? inputs_ : outputs_;
    auto *const slot = std::ranges::find_if(slots, [](const Slot &one) { return one.port.load() == nullptr; });
    if (!alive_ || slot == slots.end()) {
        return nullptr;
    }
    jack_port_t *handle = nullptr;
    for (std::size_t number = 1; handle == nullptr && number <= 2 * kMostPorts; ++number) {
        const std::string name = number == 1 ? label : label + (' ' + std::to_string(number));
        handle = jack_port_register(client_, name.c_str(), JACK_DEFAULT_MIDI_TYPE, direction, 0);
    }
    if (handle != nullptr) {
        slot->handle = handle;
        slot->port = &port;
    }
    return handle;
}

// The place of a port that has gone goes to the next one that comes, while the period that runs still has its connections. Where that is
// an input, JACK's library goes round from it to the old receiver and back, until the receiver's stack ends. So a port goes when no period
// has a connection to it, as far as the server gets on.
void JackSystem::Remove(JackPort &port, jack_port_t *handle)
{
    const auto end = EndOfWait();
    do {
        const std::lock_guard disconnecting(requests_); // again where somebody connects it meanwhile
        if (alive_) {
            jack_port_disconnect(client_, handle);
        }
    } while (alive_ && jack_port_connected(handle) > 0 && std::chrono::steady_clock::now() < end);
    const std::lock_guard lock(requests_);
    for (Slots *slots : {&inputs_, &outputs_}) {
        for (Slot &slot : *slots) {
            JackPort *expected = &port;
            slot.port.compare_exchange_strong(expected, nullptr);
        }
    }
    while (inCycle_) {
        std::this_thread::yield();
    }
    if (alive_) {
        jack_port_unregister(client_, handle);
    }
}

std::vector<std::string> JackSystem::Names(PortKind kind)
{
    const std::lock_guard lock(mutex_);
    if (client_ == nullptr || !alive_) {
        return {};
    }
    std::vector<std::string> names = Take(jack_get_ports(client_, nullptr, JACK_DEFAULT_MIDI_TYPE, DirectionOf(kind)));
    std::erase_if(names, IsOwnPort);
    return names;
}

// A list goes through all the places that a server has for ports, and each of the first one's is a page that has to be mapped: 6 ms. A
// name is found at its place, one of the first. By that name JACK finds a port also where it is an alias, which no list has.
bool JackSystem::Has(PortKind kind, const std::string &name)
{
    const std::lock_guard lock(mutex_);
    const jack_port_t *const port = client_ != nullptr && alive_ ? jack_port_by_name(client_, name.c_str()) : nullptr;
    const auto is = [](const char *text, std::string_view wanted) { return text != nullptr && text == wanted; };
    return port != nullptr && is(jack_port_name(port), name) && is(jack_port_type(port), JACK_DEFAULT_MIDI_TYPE) &&
           (static_cast<unsigned long>(jack_port_flags(port)) & DirectionOf(kind)) != 0 && !IsOwnPort(name);
}

int JackSystem::OpenOutput(const std::string &name, std::unique_ptr<SystemOutput> &end)
{
    JackHost &host = *this;
    return Open(std::make_unique<JackOutput>(host, "out"), name, end);
}

int JackSystem::OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<SystemInput> &end)
{
    JackHost &host = *this;
    return Open(std::make_unique<JackInput>(host, std::move(sink)), name, end);
}

std::unique_ptr<SourcePort> JackSystem::MakeSource()
{
    JackHost &host = *this;
    return std::make_unique<JackSource>(host);
}

int JackSystem::Join(const std::string &from, const std::string &to)
{
    {
        const std::lock_guard lock(requests_);
        if (!alive_ || jack_connect(client_, from.c_str(), to.c_str()) != 0) {
            return MidiCode::kNoDevice;
        }
    }
    // As the period that runs has it, and not as it has been asked for.
    const auto passes = [&]() {
        const std::vector<std::string> joined = Take(jack_port_get_all_connections(client_, jack_port_by_name(client_, from.c_str())));
        return std::ranges::find(joined, to) != joined.end();
    };
    const auto end = EndOfWait();
    while (alive_ && !passes() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kLookEvery);
    }
    return MidiCode::kSuccess;
}

void JackSystem::LetPass()
{
    const std::uint32_t begin = cycles_.load(std::memory_order_relaxed);
    const auto end = EndOfWait();
    while (alive_ && cycles_.load(std::memory_order_relaxed) - begin < kPeriodsToPass && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kLookEvery);
    }
}

std::chrono::steady_clock::time_point JackSystem::EndOfWait() const
{
    const auto end = std::chrono::steady_clock::now() + kLongestDelay;
    if (!alive_) {
        return end;
    }
    const std::uint64_t frames = std::uint64_t{kPeriodsToPass} * jack_get_buffer_size(client_);
    return end + std::chrono::microseconds(1000000 * frames / jack_get_sample_rate(client_));
}

} // namespace velluto
