#pragma once

#include "platform/FileFailure.h"

#include <cassert>
#include <optional>
#include <utility>

namespace ardiphon {

/// What a step that can fail gives: a value, or the reason why there is none, which can be shown
/// (`notSavedText`, `notOpenedText`). The compiler reports one that is dropped; where nothing is to
/// be done about a failure, it is assigned to std::ignore with a comment that says why.
template <typename Value = void>
class [[nodiscard]] Result
{
public:
    Result(Value value) : m_value(std::move(value)) {}
    Result(FileFailure failure) : m_failure(std::move(failure)) { assert(!m_failure.isNone()); }

    explicit operator bool() const { return m_value.has_value(); }
    /// The reason; none where there is a value.
    const FileFailure &failure() const { return m_failure; }

    // The value, which must be there.
    Value &operator*() & { return *m_value; }
    const Value &operator*() const & { return *m_value; }
    Value &&operator*() && { return *std::move(m_value); }
    Value *operator->() { return &*m_value; }
    const Value *operator->() const { return &*m_value; }

    Value value_or(Value other) const & { return m_value.value_or(std::move(other)); }
    Value value_or(Value other) && { return std::move(m_value).value_or(std::move(other)); }

private:
    std::optional<Value> m_value;
    FileFailure m_failure;
};

/// The same for a step that gives no value.
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(FileFailure failure) : m_failure(std::move(failure)) { assert(!m_failure.isNone()); }

    explicit operator bool() const { return m_failure.isNone(); }
    const FileFailure &failure() const { return m_failure; }

private:
    FileFailure m_failure;
};

} // namespace ardiphon
