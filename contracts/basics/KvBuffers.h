// Buffers that own an array. Elements start at their default value; a copy is a deep copy.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>

namespace KvN::buffers
{

// An array of `to` elements that keeps the first min(from, to) of `data`, which is freed. Null for no elements.
template <class T>
T* Resized(T* data, size_t from, size_t to)
{
    T* fresh = to > 0 ? new T[to]() : nullptr;
    if (data && fresh)
        std::copy_n(data, std::min(from, to), fresh);
    delete[] data;
    return fresh;
}

} // namespace KvN::buffers

// A byte array or the like. A size below 1 means no data.
template <class T>
class KvTArray
{
public:
    T* data = nullptr;
    int size = 0;

    KvTArray() = default;
    explicit KvTArray(int n) { Resize(n); }
    KvTArray(const KvTArray& other) { Copy(other); }
    KvTArray(KvTArray&& other) noexcept { Swap(other); }
    KvTArray& operator=(KvTArray other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~KvTArray() { delete[] data; }

    // Keeps the first min(old, new) elements; 0 and below frees.
    void Resize(int n)
    {
        n = std::max(n, 0);
        if (n == size)
            return;
        data = KvN::buffers::Resized(data, static_cast<size_t>(size), static_cast<size_t>(n));
        size = n;
    }

    T& operator[](int i) { return data[i]; }
    const T& operator[](int i) const { return data[i]; }

private:
    void Copy(const KvTArray& other)
    {
        Resize(other.size);
        std::copy_n(other.data, size, data);
    }
    void Swap(KvTArray& other) noexcept
    {
        std::swap(data, other.data);
        std::swap(size, other.size);
    }
};

namespace KvN
{

// A counted block; as KvTMem<KvTPoint<double>> it carries point lists in and out of contours.
template <class T>
class KvTMem
{
public:
    T* data = nullptr;
    unsigned size = 0;

    KvTMem() = default;
    explicit KvTMem(unsigned n) : data(buffers::Resized<T>(nullptr, 0, n)), size(n) {}
    KvTMem(const KvTMem& other) : KvTMem(other.size) { std::copy_n(other.data, size, data); }
    KvTMem& operator=(const KvTMem& other)
    {
        if (this != &other)
        {
            KvTMem copy(other);
            std::swap(data, copy.data);
            std::swap(size, copy.size);
        }
        return *this;
    }

    // Keeps the first min(old, new) elements.
    virtual void Resize(unsigned n)
    {
        data = buffers::Resized(data, size, n);
        size = n;
    }
    virtual ~KvTMem() { delete[] data; }

    T& operator[](unsigned i) { return data[i]; }
    const T& operator[](unsigned i) const { return data[i]; }
};

// One row of pixels.
template <class T>
class KvTBuf1D
{
public:
    T* data = nullptr;
    int size = 0;

    KvTBuf1D() = default;
    explicit KvTBuf1D(int n)
        : data(buffers::Resized<T>(nullptr, 0, static_cast<size_t>(std::max(n, 0)))), size(std::max(n, 0))
    {
    }
    KvTBuf1D(const KvTBuf1D& other) : KvTBuf1D(other.size) { std::copy_n(other.data, size, data); }
    KvTBuf1D& operator=(KvTBuf1D other) noexcept
    {
        std::swap(data, other.data);
        std::swap(size, other.size);
        return *this;
    }
    ~KvTBuf1D() { delete[] data; }

    T& operator[](int i) { return data[i]; }
    const T& operator[](int i) const { return data[i]; }
};

// Row after row, `width` elements each, top row first.
template <class T>
class KvTBuf2D
{
public:
    T* data = nullptr;
    int width = 0;
    int height = 0;

    KvTBuf2D() = default;
    // A width or height below 1 gives an empty buffer.
    KvTBuf2D(int w, int h)
    {
        if (w < 1 || h < 1)
            return;
        data = new T[static_cast<size_t>(w) * static_cast<size_t>(h)]();
        width = w;
        height = h;
    }
    KvTBuf2D(const KvTBuf2D& other) : KvTBuf2D(other.width, other.height) { std::copy_n(other.data, Count(), data); }
    KvTBuf2D& operator=(KvTBuf2D other) noexcept
    {
        std::swap(data, other.data);
        std::swap(width, other.width);
        std::swap(height, other.height);
        return *this;
    }
    ~KvTBuf2D() { delete[] data; }

    size_t Count() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }
    T* Row(int y) { return data + static_cast<size_t>(y) * static_cast<size_t>(width); }
    const T* Row(int y) const { return data + static_cast<size_t>(y) * static_cast<size_t>(width); }
};

} // namespace KvN
