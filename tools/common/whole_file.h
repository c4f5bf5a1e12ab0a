#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

using Bytes = std::vector<std::byte>;

/// Bytes as text, and text as bytes, without a conversion.
std::string_view AsText(std::span<const std::byte> bytes);
std::span<const std::byte> AsBytes(std::string_view text);

/// The content of a regular file. Throws Failure when it cannot be read, is not a regular file or
/// is larger than `limit` bytes.
Bytes ReadWholeFile(const std::filesystem::path& file, std::uintmax_t limit = UINT32_MAX);

/// Creates `file` with these bytes. Throws Failure when the name exists, even as a link.
void WriteNewFile(const std::filesystem::path& file, std::span<const std::byte> content);

/// Copies a regular file of any size to a new one, and calls `copied` with the number of bytes of
/// each part. Throws Failure when the name exists, even as a link, and leaves no file behind.
void CopyToNewFile(const std::filesystem::path& source, const std::filesystem::path& file,
                   const std::function<void(std::uintmax_t)>& copied);

/// Replaces `file` as a whole, or leaves it unchanged: the bytes go into a new file beside it,
/// which is then renamed. A link is replaced, not followed. Throws Failure.
void WriteWholeFile(const std::filesystem::path& file, std::span<const std::byte> content);
void WriteWholeFile(const std::filesystem::path& file, std::string_view content);

/// `path` with a random suffix: a name beside it that is almost certainly free.
std::filesystem::path TemporaryNameFor(const std::filesystem::path& path);

}  // namespace tarn::tools
