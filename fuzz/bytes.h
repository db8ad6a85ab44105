// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_BYTES_H_
#define L5KOV_FUZZ_BYTES_H_

#include <cstddef>
#include <cstdint>
#include <string>

// Bytes read one after the other; zeros when there are none left.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : at(data), end(data + size) {}
  bool empty() const { return at == end; }
  unsigned next() { return empty() ? 0u : *at++; }
  std::string text() {
    const std::size_t wanted = next() % 24;
    const std::size_t length = wanted < left() ? wanted : left();
    std::string result(reinterpret_cast<const char*>(at), length);
    at += length;
    return result;
  }
  double number() { return (static_cast<int>(next()) - 128) * 0.37; }

 private:
  std::size_t left() const { return static_cast<std::size_t>(end - at); }
  const std::uint8_t* at;
  const std::uint8_t* end;
};

#endif  // L5KOV_FUZZ_BYTES_H_
