// A MIDI system on paper: ports by name, what they received, and the messages that its inputs are made to deliver.
#pragma once

#include "platform/MidiDevices.h"
#include "platform/rtmidi/MidiPorts.h"

#include <map>
#include <set>

namespace velluto::test {

using Bytes = std::vector<std::uint8_t>;

class FakePorts : public MidiPorts {
public:
    std::vector<std::string> outputs;
    std::vector<std::string> inputs;
    bool isAtHand = true;
    int wholeLists = 0;                                             // times that these were asked for
    std::map<std::string, std::vector<Bytes>> received;             // by output
    std::map<std::string, std::vector<OutputPort::TimePoint>> dues; // by output, of those that have one
    std::map<std::string, int> openCode;                            // by port
    std::map<std::string, int> connections;                         // open ones, by port
    std::set<std::string> gone;                                     // outputs whose sends give 68
    std::map<std::string, std::shared_ptr<MessageSink>> sinks;      // of the inputs that are open

    class Output : public OutputPort {
    public:
        Output(FakePorts &owner, std::string name) : owner_(owner), name_(std::move(name)) { ++owner_.connections[name_]; }
        ~Output() override { --owner_.connections[name_]; }
        Output(const Output &) = delete;
        Output &operator=(const Output &) = delete;
        int Send(std::span<const std::uint8_t> message) override
        {
            if (owner_.gone.contains(name_)) {
                return MidiCode::kNoDevice;
            }
            owner_.received[name_].emplace_back(message.begin(), message.end());
            return MidiCode::kSuccess;
        }
        int SendAt(std::span<const std::uint8_t> message, TimePoint due) override
        {
            owner_.dues[name_].push_back(due);
            return Send(message);
        }
        [[nodiscard]] bool Gone() const override { return owner_.gone.contains(name_); }

    private:
        FakePorts &owner_;
        std::string name_;
    };

    class Input : public InputPort {
    public:
        Input(FakePorts &owner, std::string name) : owner_(owner), name_(std::move(name)) {}
        ~Input() override { owner_.sinks.erase(name_); }
        Input(const Input &) = delete;
        Input &operator=(const Input &) = delete;

    private:
        FakePorts &owner_;
        std::string name_;
    };

    bool AtHand() override { return isAtHand; }
    void ListAll() override { ++wholeLists; }
    std::vector<std::string> Outputs() override { return outputs; }
    std::vector<std::string> Inputs() override { return inputs; }
    int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) override
    {
        const int code = openCode[name];
        if (code == 0) {
            port = std::make_unique<Output>(*this, name);
        }
        return code;
    }
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) override
    {
        const int code = openCode[name];
        if (code == 0) {
            sinks[name] = std::move(sink);
            port = std::make_unique<Input>(*this, name);
        }
        return code;
    }
};

} // namespace velluto::test
