#pragma once

#include <QString>

#include <cstddef>
#include <optional>

namespace command_line {

/// One of the words that an option takes, and what it means.
template <typename Value>
struct Choice
{
    const char *word;
    Value value;
};

/// What the word means, or nothing.
template <typename Value, size_t count>
std::optional<Value> chosen(const QString &word, const Choice<Value> (&choices)[count])
{
    for (const Choice<Value> &choice : choices) {
        if (word == QLatin1String(choice.word))
            return choice.value;
    }
    return {};
}

} // namespace command_line
