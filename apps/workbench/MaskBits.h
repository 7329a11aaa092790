// The bits of a mask: 7 is the user mask, which the operator paints, 6 the system mask; the others travel along.
#pragma once

#include <memory>

namespace KvN
{
class KvAOI;
class KvAOI8;
} // namespace KvN

namespace kv::workbench
{

constexpr unsigned char userBit = 128;
constexpr unsigned char systemBit = 64;

// Whether any pixel has one of the bits.
bool HasBits(const KvN::KvAOI8& mask, unsigned char bits);
bool AreEqual(const KvN::KvAOI8& one, const KvN::KvAOI8& other); // of the same size

// Both AOIs have the same size, or the first one more columns.
void TakeBits(const KvN::KvAOI8& from, unsigned char bits, KvN::KvAOI8& to);
// Every pixel of the picture that isn't 0 belongs to the system mask.
void TakeSystemMask(const KvN::KvAOI8& picture, KvN::KvAOI8& mask);
void ClearBits(unsigned char bits, KvN::KvAOI8& mask);

// An empty mask, shown in red and blue.
std::unique_ptr<KvN::KvAOI8> EmptyMask(const KvN::KvAOI& image);
// A copy that has bits 7 and 6 only, shown in red and blue.
std::unique_ptr<KvN::KvAOI8> PaintedBits(const KvN::KvAOI8& mask);

} // namespace kv::workbench
