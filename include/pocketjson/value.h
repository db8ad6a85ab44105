// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_VALUE_H_
#define L5KOV_POCKETJSON_VALUE_H_

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "l5kov/export.h"

namespace pocketjson {

namespace detail {

template <typename T, typename... Candidates>
inline constexpr bool kIsOneOf = (std::is_same_v<T, Candidates> || ...);

template <typename T>
inline constexpr bool kIsText = kIsOneOf<T, char*, const char*>;

// Integer types without a constructor of their own.
template <typename T>
inline constexpr bool kIsOtherInteger =
    kIsOneOf<T, signed char, unsigned char, short, unsigned short, unsigned int, long,
             unsigned long, unsigned long long>;

// What would turn into a bool or into a number without being one: pointers and characters. A long
// double would lose digits.
template <typename T>
inline constexpr bool kIsNoValue = (std::is_pointer_v<T> && !kIsText<T>) ||
                                   std::is_member_pointer_v<T> || std::is_same_v<T, long double> ||
                                   (std::is_integral_v<T> && !kIsOtherInteger<T> &&
                                    !kIsOneOf<T, bool, int, long long>);

// What would turn into an index without being one.
template <typename T>
inline constexpr bool kIsNoIndex = std::is_floating_point_v<T> || std::is_null_pointer_v<T> ||
                                   (std::is_integral_v<T> && !kIsOtherInteger<T> &&
                                    !kIsOneOf<T, int, long long>);

}  // namespace detail

/// A dynamically typed JSON value in 16 bytes.
///
/// Null, booleans and numbers lie inside the value. Texts, arrays and objects lie in a counted
/// container that copies share: a copy costs one increment whatever its size, and the first write
/// through a value that shares its container copies that one container (its members stay shared).
///
///     pocketjson::Value target;
///     target["LmaxValue"] = 250.0;                  // a Null turns into an object
///     target["ColorTemperatureType"] = "K6500";
///     const pocketjson::Value& read = target;
///     double white = read["LmaxValue"].asDouble();  // 250.0
///     bool used = read["IsUsedLamb"].asBool(false); // absent: the default
///
/// Reading never fails: a key or an index that is not there, and one asked of a value of another
/// type, read as nullValue(), which converts to the caller's default. Writing turns a value of
/// another type into an object or an array and drops what it held. Mind that `[]` on a value that
/// is not const is a write, also where its result is only read.
///
/// Exceptions: only memory exhaustion (std::bad_alloc, std::length_error) and an array index past
/// the end (std::out_of_range). An operation that throws leaves the value as it was.
///
/// Threads: none of this is synchronised. The share count is a plain integer, so that even copying
/// or destroying a value writes to the container that it shares: threads must not touch values
/// that share a container at the same time. Give each thread its own, or hold a lock. Only
/// nullValue() may be called by all at once.
///
/// References: what `[]` returns on a value that is not const is for immediate use. Once the value
/// has been copied, writing through an older reference would change the copy too, for a container
/// is unshared by `[]` alone, and assigning a value to a place inside itself through such a
/// reference makes a cycle that is never freed. (`v["a"] = v` and `v = v["a"]` are safe.) Keyed
/// references stay valid until the value is assigned, changes its type or dies; references to
/// elements also end when the array grows.
class L5KOV_API Value {
 public:
  /// One bit per kind; the numbers are fixed. 8 is not used.
  enum Type : std::uint32_t {
    Null = 0,
    Bool = 1,
    Int = 2,
    Double = 4,
    String = 16,
    Object = 32,
    Array = 64,
  };

  /// The kinds that live in a container: String | Object | Array.
  static constexpr std::uint32_t kContainerMask = 0x70;

  /// What holders of a text, of elements and of members have in common.
  class AbstractContainer {
   public:
    AbstractContainer() noexcept = default;
    AbstractContainer(const AbstractContainer&) = delete;
    AbstractContainer& operator=(const AbstractContainer&) = delete;
    virtual ~AbstractContainer();

    /// How many values share the container; the last one destroys it.
    std::uint32_t refCount = 1;
  };

  /// A container of one held object: a std::string, the vector of elements or the map of members.
  template <typename T>
  class Container;

  /// Null.
  constexpr Value() noexcept : tag(Null), payload() {}
  constexpr Value(std::nullptr_t) noexcept : Value() {}
  Value(bool truth) noexcept : tag(Bool), payload() { payload.truth = truth; }
  Value(int number) noexcept : tag(Int), payload(static_cast<long long>(number)) {}
  Value(long long number) noexcept : tag(Int), payload(number) {}
  Value(double number) noexcept : tag(Double), payload(number) {}
  /// Text up to its NUL. A null pointer gives Null: no text is not the empty text.
  Value(const char* text);
  Value(const std::string& text);
  Value(std::string&& text);
  Value(std::string_view text);
  Value(const std::vector<Value>& elements);
  Value(std::vector<Value>&& elements);
  Value(const std::map<std::string, Value>& members);

  /// The other integer types. An unsigned number above the range of Int becomes the nearest
  /// Double, so that it stays large instead of turning negative.
  template <typename T, std::enable_if_t<detail::kIsOtherInteger<T>, int> = 0>
  Value(T number) noexcept : Value(static_cast<long long>(number)) {
    if constexpr (std::is_unsigned_v<T> && sizeof(T) == sizeof(long long)) {
      if (number > static_cast<T>(std::numeric_limits<long long>::max())) {
        tag = Double;
        payload = Payload(static_cast<double>(number));
      }
    }
  }

  /// A pointer is never a bool and a character never a number.
  template <typename T, std::enable_if_t<detail::kIsNoValue<T>, int> = 0>
  Value(T) = delete;
  /// To choose a kind, call setType().
  Value(Type) = delete;

  /// Shares the other's container, if any.
  Value(const Value& other) noexcept : tag(other.tag), payload(other.payload) {
    if (AbstractContainer* shared = container()) ++shared->refCount;
  }
  /// Leaves the other Null.
  Value(Value&& other) noexcept : tag(other.tag), payload(other.payload) {
    other.tag = Null;
    other.payload = Payload();
  }
  /// Takes the new contents before it lets go of the old ones: `v = v["a"]` is safe.
  Value& operator=(Value other) noexcept {
    swap(other);
    return *this;
  }
  ~Value() { release(); }

  void swap(Value& other) noexcept {
    const Type otherTag = other.tag;
    const Payload otherPayload = other.payload;
    other.tag = tag;
    other.payload = payload;
    tag = otherTag;
    payload = otherPayload;
  }
  friend void swap(Value& left, Value& right) noexcept { left.swap(right); }

  Type type() const noexcept { return tag; }

  /// Keeps the contents where the type stays the same. Otherwise drops them, and the value becomes
  /// false, 0, 0.0, an empty text, object or array.
  void setType(Type wanted);

  /// String: bytes of the text. Object: members. Array: elements. Anything else: 0.
  std::size_t size() const noexcept;

  /// Writing: the member of that name, made as Null where it is missing. A value that is not an
  /// object becomes an empty one first, without error. Unshares a shared object.
  Value& operator[](std::string_view key);
  /// Reading: the member of that name (exact bytes), or nullValue(). Allocates nothing.
  const Value& operator[](std::string_view key) const noexcept;

  /// Writing: the element at the index. A value that is not an array becomes an empty one first.
  /// An index equal to size() appends a Null; one beyond that throws std::out_of_range (a wrong
  /// index shall neither go unnoticed nor eat the memory). Unshares a shared array.
  Value& operator[](std::size_t index);
  /// Reading: the element at the index, or nullValue().
  const Value& operator[](std::size_t index) const noexcept;

  /// Literals and other C texts as keys; a null pointer is the empty key. (With a plain overload
  /// for `const char*` the index 0 would be ambiguous: it is a null pointer too.)
  template <typename T, std::enable_if_t<detail::kIsText<T>, int> = 0>
  Value& operator[](T key) {
    return (*this)[keyOf(key)];
  }
  template <typename T, std::enable_if_t<detail::kIsText<T>, int> = 0>
  const Value& operator[](T key) const noexcept {
    return (*this)[keyOf(key)];
  }
  /// Neither key nor index.
  template <typename T, std::enable_if_t<detail::kIsNoIndex<T>, int> = 0>
  Value& operator[](T) = delete;
  template <typename T, std::enable_if_t<detail::kIsNoIndex<T>, int> = 0>
  const Value& operator[](T) const = delete;

  /// Adds an element at the end. A value that is not an array becomes an empty one first.
  void append(const Value& element);

  /// The names of an object's members in the order of their bytes; nothing for other types.
  std::vector<std::string> keys() const;

  /// Conversions never fail on a type. Null, objects and arrays give the default.
  ///
  /// Numbers: not 0 (a NaN is true). A text is true if it is exactly "true", and false otherwise.
  bool asBool(bool byDefault = false) const noexcept;
  /// A Double is rounded, halves away from zero; what does not fit into 32 bits gives the default.
  /// A text is read like a C literal: "31", "0x1F" and "037" are the same number. A text that is
  /// no number, or does not fit, gives 0 and not the default.
  int asInt(int byDefault = 0) const noexcept;
  /// A text is read whatever the locale's decimal point is; one that is no number from its first
  /// to its last character gives the default. The empty text is 0.0.
  double asDouble(double byDefault = 0.0) const;
  /// "true", "false", decimal digits; a Double with 17 significant digits, so that it reads back
  /// exactly: "0.0" for both zeros, otherwise no needless ".0"; "nan", "inf", "-inf". "." is the
  /// decimal point in every locale.
  std::string asString(const std::string& byDefault = "") const;

  /// The Null that failed look-ups refer to. Made on first use, by any thread; lives until the
  /// process ends.
  static const Value& nullValue() noexcept;

 private:
  union Payload {
    constexpr Payload() noexcept : integer(0) {}
    explicit Payload(long long number) noexcept : integer(number) {}
    explicit Payload(double number) noexcept : real(number) {}
    explicit Payload(AbstractContainer* owned) noexcept : container(owned) {}

    std::int64_t integer;
    double real;
    bool truth;
    AbstractContainer* container;
  };

  // The owner of one share of a container made with a count of 1.
  Value(Type kind, AbstractContainer* owned) noexcept : tag(kind), payload(owned) {}

  AbstractContainer* container() const noexcept {
    return (tag & kContainerMask) != 0 ? payload.container : nullptr;
  }
  void release() noexcept {
    AbstractContainer* shared = container();
    if (shared != nullptr && --shared->refCount == 0) destroyContainer(tag, shared);
  }
  static std::string_view keyOf(const char* key) noexcept {
    return key != nullptr ? std::string_view(key) : std::string_view();
  }

  // Destroys a container whose count has reached 0, and all that hangs on it alone.
  static void destroyContainer(Type kind, AbstractContainer* unowned) noexcept;

  // What the container holds; T must fit the type.
  template <typename T>
  T& held() const noexcept;

  friend class Burial;

  Type tag;
  Payload payload;
};

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_VALUE_H_
