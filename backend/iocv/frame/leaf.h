// How a dispatcher's table calls a core function: each row is one instance of these templates, with
// those of the dispatcher's arguments that come in registers, so that dispatching is a load and a
// jump. The length of the text, which would lie in memory, no row needs: width bounds the field.
#pragma once

#include <iocv/base.h>

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "frame/field.h"
#include "frame/format_code.h"
#include "frame/rows.h"
#include "frame/settings.h"
#include "frame/status.h"

namespace iocv {

using ReadLeaf = void(const char* text, const std::int32_t* type, const std::int64_t* width,
                      const std::int64_t* decimals, OBS* value, std::int64_t* status);
using WriteLeaf = void(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                       const std::int64_t* decimals, char* text, std::int64_t* status);

// The bytes of an input field; a negative width is an empty field.
inline std::string_view input_field(const char* text, std::int64_t width) noexcept {
  return width > 0 ? std::string_view(text, static_cast<std::size_t>(width)) : std::string_view();
}

inline void store(std::int64_t* status, Status result) noexcept {
  *status = static_cast<std::int64_t>(result);
}

// A reader of numbers is (field, decimals, settings) or (field, decimals, code, settings) -> value
// and status, a writer (field, value, decimals, settings) or (field, value, decimals, code,
// settings) -> status.
template <auto Read>
auto call_reader(std::string_view field, std::int64_t decimals, FormatCode code,
                 const Settings& settings) noexcept {
  if constexpr (std::is_invocable_v<decltype(Read), std::string_view, std::int64_t,
                                    const Settings&>) {
    return Read(field, decimals, settings);
  } else {
    return Read(field, decimals, code, settings);
  }
}

template <auto Write>
Status call_writer(Field out, double value, std::int64_t decimals, FormatCode code,
                   const Settings& settings) noexcept {
  if constexpr (std::is_invocable_v<decltype(Write), Field, double, std::int64_t,
                                    const Settings&>) {
    return Write(out, value, decimals, settings);
  } else {
    return Write(out, value, decimals, code, settings);
  }
}

// A type's code where a leaf looks for it, for flat routines that serve one type.
template <FormatCode Code>
inline constexpr auto type_code = static_cast<std::int32_t>(Code);

template <auto Read>
void read_leaf(const char* text, const std::int32_t* type, const std::int64_t* width,
               const std::int64_t* decimals, OBS* value, std::int64_t* status) {
  const auto result = call_reader<Read>(input_field(text, *width), *decimals,
                                        static_cast<FormatCode>(*type), Settings::current());
  value->number = result.value;
  store(status, result.status);
}

template <auto Write>
void write_leaf(const OBS* value, const std::int32_t* type, const std::int64_t* width,
                const std::int64_t* decimals, char* text, std::int64_t* status) {
  store(status, call_writer<Write>(Field(text, *width), value->number, *decimals,
                                   static_cast<FormatCode>(*type), Settings::current()));
}

// Writers with fast paths: a leaf tries its own and passes on, by value, what that does not answer.
// The two arguments between leave text and status in the registers where the dispatcher has them.
using WriteValues = void(std::int64_t width, std::int64_t decimals, std::int64_t, std::int64_t,
                         char* text, std::int64_t* status, double value);

// Write is (field, value, decimals, settings) -> status.
template <auto Write>
[[gnu::noinline, gnu::used]] void write_values(std::int64_t width, std::int64_t decimals,
                                               std::int64_t, std::int64_t, char* text,
                                               std::int64_t* status, double value) {
  store(status, Write(Field(text, width), value, decimals, Settings::current()));
}

// Whether an attempt (frame/steps.h) writes a single value.
template <class Attempt>
[[gnu::always_inline]] inline bool attempted(char* text, std::int64_t width, std::int64_t decimals,
                                             double value) noexcept {
  Attempt attempt;
  return Attempt::make(width, decimals, CurrentSettings(), attempt) && attempt(text, value);
}

template <class Attempt, WriteValues* kOtherwise>
[[gnu::noinline, gnu::used]] void write_fast_values(std::int64_t width, std::int64_t decimals,
                                                    std::int64_t, std::int64_t, char* text,
                                                    std::int64_t* status, double value) {
  if (attempted<Attempt>(text, width, decimals, value)) return store(status, Status::ok);
  kOtherwise(width, decimals, 0, 0, text, status, value);
}

template <class Attempt, WriteValues* kOtherwise>
void write_fast_leaf(const OBS* value, const std::int32_t*, const std::int64_t* width,
                     const std::int64_t* decimals, char* text, std::int64_t* status) {
  const double number = value->number;
  if (attempted<Attempt>(text, *width, *decimals, number)) return store(status, Status::ok);
  kOtherwise(*width, *decimals, 0, 0, text, status, number);
}

// A string's bytes; unlike a number it may lie at any address.
inline char* bytes_of(OBS* value) noexcept { return reinterpret_cast<char*>(value); }
inline const char* bytes_of(const OBS* value) noexcept {
  return reinterpret_cast<const char*>(value);
}

// String formats: Read is (field, bytes of the value) -> status, Write (field, bytes of the value).
template <auto Read>
inline constexpr bool kReadsString = std::is_invocable_v<decltype(Read), std::string_view, char*>;

template <auto Write>
inline constexpr bool kWritesString = std::is_invocable_v<decltype(Write), Field, const char*>;

template <auto Read>
void read_string_leaf(const char* text, const std::int32_t*, const std::int64_t* width,
                      const std::int64_t*, OBS* value, std::int64_t* status) {
  store(status, Read(input_field(text, *width), bytes_of(value)));
}

template <auto Write>
void write_string_leaf(const OBS* value, const std::int32_t*, const std::int64_t* width,
                       const std::int64_t*, char* text, std::int64_t* status) {
  Write(Field(text, *width), bytes_of(value));
  store(status, Status::ok);
}

// Which leaf a code has, or null when it goes to the extension hook.
[[gnu::visibility("hidden")]] extern const CodeTable<ReadLeaf> readers;
inline ReadLeaf* reader_of(std::int64_t code) noexcept { return entry_of(readers, code); }

[[gnu::visibility("hidden")]] extern const CodeTable<WriteLeaf> writers;
inline WriteLeaf* writer_of(std::int64_t code) noexcept { return entry_of(writers, code); }

}  // namespace iocv
