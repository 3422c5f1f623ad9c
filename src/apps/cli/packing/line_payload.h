#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace keyscout {

/// What goes along with a sorted key here: the line of the download that it comes from, then text.
inline void setLinePayload(std::string& payload, std::uint64_t line) {
  payload.resize(sizeof line);
  std::memcpy(payload.data(), &line, sizeof line);
}

struct LinePayload {
  std::uint64_t line = 0;
  std::string_view text;

  explicit LinePayload(std::string_view payload) : text(payload.substr(sizeof line)) {
    std::memcpy(&line, payload.data(), sizeof line);
  }
};

}  // namespace keyscout
