#pragma once

#include <utility>

namespace tarn {

/// Owns one resource of the platform and gives it back when it goes. Move only.
///
/// `Traits` names the kind of resource: `Value` is its raw type, `None()` the value that stands
/// for nothing (null for most, `INVALID_HANDLE_VALUE` for files), `Close(Value)` gives it back.
template <typename Traits>
class UniqueResource {
  public:
    using Value = typename Traits::Value;

    UniqueResource() = default;
    explicit UniqueResource(Value value) : value_(value) {}
    UniqueResource(UniqueResource&& other) noexcept : value_(other.release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    ~UniqueResource() { reset(); }

    Value get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::None(); }

    /// Gives back what is held, if anything, and holds `value` from now on.
    void reset(Value value = Traits::None()) {
        const Value old = std::exchange(value_, value);
        if (old != Traits::None()) Traits::Close(old);
    }

    /// Hands the resource to the caller, who gives it back from now on.
    Value release() { return std::exchange(value_, Traits::None()); }

    /// Where a function that returns its result through a pointer may write it.
    Value* put() {
        reset();
        return &value_;
    }

  private:
    Value value_ = Traits::None();
};

}  // namespace tarn
