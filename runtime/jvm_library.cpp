#include "runtime/jvm_library.h"

#include "base/text.h"

namespace tarn {

namespace {

// One list for all types, so the server JVM is in it twice: docs/developer/compatibility.md.
constexpr JvmLibraryPlace kPlaces[] = {
    {L"bin\\server\\jvm.dll", true},   {L"bin\\client\\jvm.dll", false},
    {L"bin\\classic\\jvm.dll", false}, {L"bin\\hotspot\\jvm.dll", false},
    {L"bin\\server\\jvm.dll", true},   {L"bin\\jrockit\\jvm.dll", false},
};

}  // namespace

std::span<const JvmLibraryPlace> JvmLibraryPlaces(JvmType type) {
    const std::span<const JvmLibraryPlace> all(kPlaces);
    switch (type) {
        case JvmType::Server:
            return all.first(1);
        case JvmType::FavorServer:
            return all;
        case JvmType::Default:
            break;
    }
    return all.subspan(1);
}

std::wstring_view CutComponents(std::wstring_view path, int count) {
    for (int cut = 0; cut < count; ++cut) path = CutAtLast(path, L'\\');
    return path;
}

}  // namespace tarn
