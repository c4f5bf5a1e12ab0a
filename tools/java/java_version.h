#pragma once

#include <cstddef>
#include <span>

namespace tarn::tools {

/// The number of the oldest Java that runs a class, from the head of its file: 1 for Java 1.1,
/// 8 for Java 1.8, 17 for Java 17; 0 when it is no class file.
int JavaFeatureOfClass(std::span<const std::byte> classFile);

}  // namespace tarn::tools
