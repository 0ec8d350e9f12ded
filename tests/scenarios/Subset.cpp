#include "scenarios/Subset.h"

namespace velluto::scenarios {

namespace {

using driver::Json;

std::string Differs(const std::string &at, const std::string &expected, const std::string &answer)
{
    return (at.empty() ? "the answer" : at) + ": expected " + expected + ", got " + answer;
}

std::string ObjectDifference(const Json &expected, const Json &answer, const std::string &at)
{
    for (const auto &[key, value] : expected.items()) {
        std::string below = at;
        below.append(".").append(key);
        if (!answer.contains(key)) {
            return Differs(below, driver::OneLine(value), "nothing");
        }
        if (std::string difference = Difference(value, answer.at(key), below); !difference.empty()) {
            return difference;
        }
    }
    return {};
}

std::string ListDifference(const Json &expected, const Json &answer, const std::string &at)
{
    const bool goesOn = !expected.empty() && expected.back() == "...";
    const std::size_t told = expected.size() - (goesOn ? 1 : 0);
    if (goesOn ? answer.size() < told : answer.size() != told) {
        return Differs(at, std::to_string(told) + (goesOn ? " or more" : "") + " elements", driver::OneLine(answer));
    }
    for (std::size_t i = 0; i < told; ++i) {
        if (std::string difference = Difference(expected.at(i), answer.at(i), at + "[" + std::to_string(i) + "]"); !difference.empty()) {
            return difference;
        }
    }
    return {};
}

} // namespace

std::string Difference(const Json &expected, const Json &answer, const std::string &at)
{
    if (expected.is_object() && answer.is_object()) {
        return ObjectDifference(expected, answer, at);
    }
    if (expected.is_array() && answer.is_array()) {
        return ListDifference(expected, answer, at);
    }
    return expected == answer ? std::string{} : Differs(at, driver::OneLine(expected), driver::OneLine(answer));
}

} // namespace velluto::scenarios
