#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace catalogador {

/// A growing array of plain values. It is enlarged where it stands when there is room, and a large
/// one is moved by the system without being copied, which a vector cannot do.
template <class T>
class PackedArray {
    static_assert(std::is_trivially_copyable_v<T>);

  public:
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] const T* data() const { return data_.get(); }
    [[nodiscard]] T* data() { return data_.get(); }
    [[nodiscard]] const T* begin() const { return data(); }
    [[nodiscard]] const T* end() const { return data() + size_; }
    const T& operator[](std::size_t index) const { return data()[index]; }
    T& operator[](std::size_t index) { return data()[index]; }

    void push_back(T value) {
        if (size_ == capacity_) grow(size_ + 1);
        data()[size_++] = value;
    }
    void append(const T* values, std::size_t count) {
        if (count == 0) return;
        if (capacity_ - size_ < count) grow(size_ + count);
        std::memcpy(data() + size_, values, count * sizeof(T));
        size_ += count;
    }
    /// New values are `value`.
    void resize(std::size_t size, T value) {
        if (size > capacity_) grow(size);
        if (size > size_) std::fill(data() + size_, data() + size, value);
        size_ = size;
    }
    /// Gives back what was taken in advance.
    void shrink() {
        if (size_ == 0)
            *this = {};
        else
            reallocate(size_);
    }

    PackedArray() = default;
    PackedArray(PackedArray&& other) noexcept { *this = std::move(other); }
    PackedArray& operator=(PackedArray&& other) noexcept {
        data_ = std::move(other.data_);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, 0);
        return *this;
    }

  private:
    struct Free {
        void operator()(T* data) const { std::free(data); }
    };

    void grow(std::size_t needed) { reallocate(std::max(needed, capacity_ + capacity_ / 2 + 16)); }
    void reallocate(std::size_t capacity) {
        void* moved = std::realloc(data_.get(), capacity * sizeof(T));
        if (moved == nullptr) throw std::bad_alloc();
        (void)data_.release();
        data_.reset(static_cast<T*>(moved));
        capacity_ = capacity;
    }

    std::unique_ptr<T, Free> data_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace catalogador
