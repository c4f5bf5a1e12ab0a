#include "tests/support/edited_launcher.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "base/handles.h"

namespace tarn::test {

namespace {

constexpr WORD kEnglish = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);

using Bytes = std::vector<std::uint8_t>;

Bytes ReadResource(const std::wstring& program, const wchar_t* type, unsigned id) {
    const UniqueLibrary library(LoadLibraryExW(program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    const HRSRC found = FindResourceW(library.get(), MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    const auto* const data =
        static_cast<const std::uint8_t*>(LockResource(LoadResource(library.get(), found)));
    return Bytes(data, data + SizeofResource(library.get(), found));
}

bool WriteResource(const std::wstring& program, const wchar_t* type, const wchar_t* name,
                   const Bytes& bytes) {
    const HANDLE update = BeginUpdateResourceW(program.c_str(), FALSE);
    if (update == nullptr) return false;
    Bytes copy = bytes;
    const BOOL updated =
        UpdateResourceW(update, type, name, kEnglish, copy.data(), static_cast<DWORD>(copy.size()));
    return EndUpdateResourceW(update, updated ? FALSE : TRUE) && updated;
}

Bytes ReadDialog(const std::wstring& program, int dialog) {
    return ReadResource(program, RT_DIALOG, static_cast<unsigned>(dialog));
}

bool WriteDialog(const std::wstring& program, int dialog, const Bytes& bytes) {
    return WriteResource(program, RT_DIALOG, MAKEINTRESOURCEW(dialog), bytes);
}

void Append(Bytes& bytes, const Bytes& from, std::size_t begin, std::size_t end) {
    bytes.insert(bytes.end(), from.begin() + static_cast<std::ptrdiff_t>(begin),
                 from.begin() + static_cast<std::ptrdiff_t>(end));
}

void AppendText(Bytes& bytes, const std::wstring& text) {
    const auto* const characters = reinterpret_cast<const std::uint8_t*>(text.c_str());
    bytes.insert(bytes.end(), characters, characters + (text.size() + 1) * sizeof(wchar_t));
}

/// Iterates over an extended dialog template.
class Template {
  public:
    explicit Template(const Bytes& bytes) : bytes_(bytes) {}

    std::uint16_t Word(std::size_t at) const {
        std::uint16_t value = 0;
        if (at + 2 <= bytes_.size()) std::memcpy(&value, bytes_.data() + at, 2);
        return value;
    }
    std::uint32_t Double(std::size_t at) const {
        return Word(at) | static_cast<std::uint32_t>(Word(at + 2)) << 16;
    }
    /// The offset after a name, which is a number, a text or empty.
    std::size_t AfterName(std::size_t at) const {
        if (Word(at) == 0xFFFF) return at + 4;
        while (at < bytes_.size() && Word(at) != 0) at += 2;
        return at + 2;
    }
    static std::size_t Aligned(std::size_t at) { return (at + 3) & ~std::size_t{3}; }

    /// The offset of the window class, after the fixed part and the menu.
    std::size_t WindowClass() const { return AfterName(26); }
    /// The offset of the first control, after class, title and font.
    std::size_t FirstControl() const {
        return Aligned(AfterName(AfterName(AfterName(WindowClass())) + 6));
    }
    bool IsExtended() const { return bytes_.size() > 30 && Word(2) == 0xFFFF; }

  private:
    const Bytes& bytes_;
};

}  // namespace

bool ReplaceMessageText(const std::wstring& program, unsigned id, const std::wstring& text) {
    // A resource contains sixteen texts, each after its length.
    const unsigned block = id / 16 + 1;
    const Bytes bytes = ReadResource(program, RT_STRING, block);
    Bytes edited;
    std::size_t at = 0;
    for (unsigned each = 0; each < 16; ++each) {
        if (at + 2 > bytes.size()) return false;
        const std::size_t length = bytes[at] | static_cast<std::size_t>(bytes[at + 1]) << 8;
        const std::size_t next = at + 2 + length * 2;
        if (next > bytes.size()) return false;
        if (each == id % 16) {
            edited.push_back(static_cast<std::uint8_t>(text.size()));
            edited.push_back(0);
            const auto* const units = reinterpret_cast<const std::uint8_t*>(text.data());
            edited.insert(edited.end(), units, units + text.size() * 2);
        } else {
            Append(edited, bytes, at, next);
        }
        at = next;
    }
    return text.size() < 256 && WriteResource(program, RT_STRING, MAKEINTRESOURCEW(block), edited);
}

bool BuildInSettings(const std::wstring& program, const std::string& text) {
    return WriteResource(program, RT_RCDATA, L"SETTINGS", Bytes(text.begin(), text.end()));
}

bool ReplaceControlText(const std::wstring& program, int dialog, int control,
                        const std::wstring& text) {
    const Bytes bytes = ReadDialog(program, dialog);
    const Template old(bytes);
    if (!old.IsExtended()) return false;

    std::size_t at = old.FirstControl();
    Bytes edited;
    Append(edited, bytes, 0, at);
    bool replaced = false;
    for (int count = old.Word(16); count > 0; --count) {
        const std::size_t textAt = old.AfterName(at + 24);
        const std::size_t extraAt = old.AfterName(textAt);
        const std::size_t end = extraAt + 2 + old.Word(extraAt);
        edited.resize(Template::Aligned(edited.size()));
        Append(edited, bytes, at, textAt);
        if (old.Double(at + 20) == static_cast<std::uint32_t>(control)) {
            AppendText(edited, text);
            replaced = true;
        } else {
            Append(edited, bytes, textAt, extraAt);
        }
        Append(edited, bytes, extraAt, end);
        at = Template::Aligned(end);
    }
    return replaced && WriteDialog(program, dialog, edited);
}

bool BreakDialog(const std::wstring& program, int dialog) {
    const Bytes bytes = ReadDialog(program, dialog);
    const Template old(bytes);
    if (!old.IsExtended()) return false;
    Bytes edited;
    Append(edited, bytes, 0, old.WindowClass());
    AppendText(edited, L"TarnNoSuchClass");
    Append(edited, bytes, old.AfterName(old.WindowClass()), old.FirstControl());
    edited.resize(Template::Aligned(edited.size()));
    Append(edited, bytes, old.FirstControl(), bytes.size());
    return WriteDialog(program, dialog, edited);
}

}  // namespace tarn::test
