#include "providers/files/DecodingLimits.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "providers/files/TextEncoding.h"

namespace touchpanel::files {

namespace {

/// Walks a binary property list from its root the way a decoder does, but counts instead of building.
///
///     "bplist00" | objects | offset table | trailer (32 bytes)
///
/// An object begins with a marker: type in the high four bits, count in the low four, where 15 says that an
/// integer object with the count follows. Arrays and sets hold `count` references, dictionaries twice as
/// many.
class BinaryWalk {
 public:
  explicit BinaryWalk(std::string_view file) : file_(file) {}

  bool isDecodable() {
    constexpr std::size_t kHeaderSize = 8;
    constexpr std::size_t kTrailerSize = 32;
    if (file_.size() < kHeaderSize + kTrailerSize) return false;
    const auto trailer = file_.size() - kTrailerSize;
    offsetSize_ = byteAt(trailer + 6);
    referenceSize_ = byteAt(trailer + 7);
    if (!isIntegerSize(offsetSize_) || !isIntegerSize(referenceSize_)) return false;
    objectCount_ = *integerAt(trailer + 8, 8);
    offsetTable_ = *integerAt(trailer + 24, 8);
    if (offsetTable_ > file_.size()) return false;
    return visit(*integerAt(trailer + 16, 8), 0);
  }

 private:
  enum ObjectType : std::uint8_t {
    kInteger = 0x1,
    kData = 0x4,
    kAsciiText = 0x5,
    kUtf16Text = 0x6,
    kArray = 0xA,
    kDictionary = 0xD
  };
  struct Extent {
    std::uint64_t count = 0;
    std::uint64_t start = 0;
  };

  static bool isIntegerSize(std::size_t size) { return size >= 1 && size <= 8; }
  std::size_t byteAt(std::size_t at) const { return static_cast<std::uint8_t>(file_[at]); }

  std::optional<std::uint64_t> integerAt(std::uint64_t at, std::uint64_t size) const {
    if (at > file_.size() || size > file_.size() - at) return std::nullopt;
    std::uint64_t value = 0;
    for (std::uint64_t i = 0; i < size; ++i) value = value << 8U | byteAt(at + i);
    return value;
  }

  bool visit(std::uint64_t object, std::size_t depth) {
    if (depth > kMaximumDepth || ++visited_ > kMaximumValues) return false;
    const auto offset = offsetOf(object);
    if (!offset) return false;
    const auto type = byteAt(*offset) >> 4U;
    if (type < kData) return true;
    const auto extent = extentAt(*offset);
    if (!extent || extent->count > file_.size()) return false;
    if (type < kArray) return takeBytes(extent->count) && isSound(type, *extent);
    if (type != kDictionary) return visitAll(extent->start, extent->count, depth + 1);
    return visitAll(extent->start, 2 * extent->count, depth + 1) && keysAreTexts(*extent);
  }

  bool visitAll(std::uint64_t references, std::uint64_t count, std::size_t depth) {
    for (std::uint64_t i = 0; i < count; ++i) {
      const auto object = integerAt(references + i * referenceSize_, referenceSize_);
      if (!object || !visit(*object, depth)) return false;
    }
    return true;
  }

  /// Texts and data are copied once for every reference to them.
  bool takeBytes(std::uint64_t count) {
    bytes_ += count;
    return bytes_ <= kMaximumFileSize;
  }

  bool isSound(std::size_t type, const Extent& bytes) const {
    const auto rest = file_.substr(bytes.start);
    if (type == kAsciiText) {
      const auto text = rest.substr(0, bytes.count);
      return std::none_of(text.begin(), text.end(), [](char each) { return (each & 0x80) != 0; });
    }
    return type != kUtf16Text ||
           utf8Of("\xFE\xFF" + std::string(rest.substr(0, 2 * bytes.count))).has_value();
  }

  /// A dictionary's keys are the first half of its references.
  bool keysAreTexts(const Extent& dictionary) const {
    for (std::uint64_t i = 0; i < dictionary.count; ++i) {
      const auto object = integerAt(dictionary.start + i * referenceSize_, referenceSize_);
      const auto offset = object ? offsetOf(*object) : std::nullopt;
      if (!offset || !isTextWithoutNul(*offset)) return false;
    }
    return true;
  }

  bool isTextWithoutNul(std::uint64_t offset) const {
    const auto type = byteAt(offset) >> 4U;
    if (type != kAsciiText && type != kUtf16Text) return false;
    const std::uint64_t width = type == kUtf16Text ? 2 : 1;
    const auto extent = extentAt(offset);
    if (!extent) return false;
    for (std::uint64_t i = 0; i < extent->count; ++i)
      if (integerAt(extent->start + i * width, width).value_or(0) == 0) return false;
    return true;
  }

  std::optional<std::uint64_t> offsetOf(std::uint64_t object) const {
    if (object >= objectCount_ || object > file_.size()) return std::nullopt;
    const auto offset = integerAt(offsetTable_ + object * offsetSize_, offsetSize_);
    return offset && *offset < file_.size() ? offset : std::nullopt;
  }

  /// How many items the object at `offset` has, and where they start.
  std::optional<Extent> extentAt(std::uint64_t offset) const {
    const std::uint64_t count = byteAt(offset) & 0xFU;
    if (count != 0xF) return Extent{count, offset + 1};
    const auto marker = integerAt(offset + 1, 1);
    if (!marker || *marker >> 4U != kInteger || (*marker & 0xFU) > 3) return std::nullopt;
    const std::uint64_t size = std::uint64_t{1} << (*marker & 0xFU);
    const auto longCount = integerAt(offset + 2, size);
    if (!longCount) return std::nullopt;
    return Extent{*longCount, offset + 2 + size};
  }

  std::string_view file_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t offsetTable_ = 0;
  std::size_t visited_ = 0;
  std::uint64_t bytes_ = 0;
};

}  // namespace

bool isDecodable(std::string_view binary) {
  return binary.size() <= kMaximumFileSize && BinaryWalk(binary).isDecodable();
}

}  // namespace touchpanel::files
