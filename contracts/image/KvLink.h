// KvTools::Link: one replaceable callback of two words.
#pragma once

namespace KvTools
{

// Copied freely. Empty while `function` is null; it doesn't own `instance`.
class Link
{
public:
    using Function = long long (*)(void* instance, void* data);

    void* instance = nullptr;
    Function function = nullptr;

    Link() = default;
    Link(void* instance_, Function function_) : instance(instance_), function(function_) {}

    // The function's result; 0, and nothing done, for an empty link.
    long long Call(void* data) const { return function ? function(instance, data) : 0; }
    bool IsSet() const { return function != nullptr; }
};

} // namespace KvTools
