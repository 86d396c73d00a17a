// A function that is called while the caller waits: nothing is kept of it, and nothing allocated.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

template <typename Signature>
class FunctionRef;

// Refers to whatever it was made of, which must outlive it: made for parameters only.
template <typename Value, typename... Arguments>
class FunctionRef<Value(Arguments...)>
{
public:
    template <typename Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, FunctionRef>)
        FunctionRef(Function &&function) // NOLINT: a lambda stands where a FunctionRef is asked for
        : object(const_cast<void *>(static_cast<const void *>(std::addressof(function))))
        , call([](void *target, Arguments... arguments) -> Value {
            return (*static_cast<std::remove_reference_t<Function> *>(target))(
                std::forward<Arguments>(arguments)...);
        })
    { }

    Value operator()(Arguments... arguments) const
    {
        return call(object, std::forward<Arguments>(arguments)...);
    }

private:
    void *object;
    Value (*call)(void *, Arguments...);
};
