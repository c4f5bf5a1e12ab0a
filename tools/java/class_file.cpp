#include "tools/java/class_file.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

constexpr std::uint32_t kMagic = 0xCAFEBABE;
constexpr unsigned kStaticPhase = 0x40;  // flag of a "requires static"

// Tags of the constant pool.
enum Tag : std::uint8_t {
    Utf8 = 1,
    Integer = 3,
    Float = 4,
    Long = 5,
    Double = 6,
    Class = 7,
    String = 8,
    FieldRef = 9,
    MethodRef = 10,
    InterfaceMethodRef = 11,
    NameAndType = 12,
    MethodHandle = 15,
    MethodType = 16,
    Dynamic = 17,
    InvokeDynamic = 18,
    Module = 19,
    Package = 20,
};

[[noreturn]] void Fail() {
    throw Failure("is not a class file");
}

// Reads big-endian numbers in order. Throws Failure at the end of the bytes.
class Reader {
  public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::size_t Size() const { return bytes_.size(); }
    unsigned U8() { return Number(1); }
    unsigned U16() { return Number(2); }
    std::uint32_t U32() { return Number(4); }

    std::span<const std::byte> Take(std::size_t size) {
        if (size > bytes_.size()) Fail();
        const auto part = bytes_.first(size);
        bytes_ = bytes_.subspan(size);
        return part;
    }

  private:
    std::uint32_t Number(std::size_t size) {
        std::uint32_t value = 0;
        for (const std::byte each : Take(size)) {
            value = value << 8 | static_cast<std::uint32_t>(each);
        }
        return value;
    }

    std::span<const std::byte> bytes_;
};

class ConstantPool {
  public:
    explicit ConstantPool(Reader& reader) {
        constexpr std::size_t kSmallestEntry = 3;  // bytes
        const std::size_t count = reader.U16();
        // The entry 0 is not stored. A count that the bytes cannot hold would cost memory.
        if (count > reader.Size() / kSmallestEntry + 1) Fail();
        entries_.resize(count);
        for (std::size_t at = 1; at < entries_.size(); ++at) {
            Entry& entry = entries_[at];
            entry.tag = static_cast<Tag>(reader.U8());
            switch (entry.tag) {
                case Utf8:
                    entry.text = AsText(reader.Take(reader.U16()));
                    break;
                case Class:
                case Module:
                case Package:
                    entry.nameIndex = reader.U16();
                    break;
                case String:
                case MethodType:
                    reader.Take(2);
                    break;
                case MethodHandle:
                    reader.Take(3);
                    break;
                case Integer:
                case Float:
                case FieldRef:
                case MethodRef:
                case InterfaceMethodRef:
                case NameAndType:
                case Dynamic:
                case InvokeDynamic:
                    reader.Take(4);
                    break;
                case Long:
                case Double:
                    reader.Take(8);
                    ++at;  // these take two entries
                    break;
                default:
                    Fail();
            }
        }
    }

    std::string_view Text(unsigned index) const { return Get(index, Utf8).text; }

    // The name that an entry of that kind refers to.
    std::string Name(unsigned index, Tag tag) const {
        return std::string(Text(Get(index, tag).nameIndex));
    }

    // The classes, and the element classes of array types.
    std::set<std::string> Classes() const {
        std::set<std::string> names;
        for (const Entry& entry : entries_) {
            if (entry.tag != Class) continue;
            std::string_view name = Text(entry.nameIndex);
            if (name.starts_with('[')) {
                name.remove_prefix(std::min(name.find_first_not_of('['), name.size()));
                if (!name.starts_with('L') || !name.ends_with(';')) continue;
                name = name.substr(1, name.size() - 2);
            }
            names.emplace(name);
        }
        return names;
    }

  private:
    struct Entry {
        Tag tag{};
        unsigned nameIndex = 0;
        std::string_view text;
    };

    const Entry& Get(unsigned index, Tag tag) const {
        if (index >= entries_.size() || entries_[index].tag != tag) Fail();
        return entries_[index];
    }

    std::vector<Entry> entries_;
};

void SkipAttributes(Reader& reader) {
    for (unsigned count = reader.U16(); count > 0; --count) {
        reader.U16();  // name
        reader.Take(reader.U32());
    }
}

// The fields or the methods.
void SkipMembers(Reader& reader) {
    for (unsigned count = reader.U16(); count > 0; --count) {
        reader.Take(6);  // flags, name, type
        SkipAttributes(reader);
    }
}

void ReadModule(Reader reader, const ConstantPool& pool, ModuleDeclaration& module) {
    module.name = pool.Name(reader.U16(), Module);
    reader.Take(4);  // flags, version
    for (unsigned count = reader.U16(); count > 0; --count) {
        ModuleDeclaration::Requirement requirement;
        requirement.module = pool.Name(reader.U16(), Module);
        requirement.isOptional = (reader.U16() & kStaticPhase) != 0;
        reader.U16();  // version
        module.requirements.push_back(std::move(requirement));
    }
    for (unsigned count = reader.U16(); count > 0; --count) {
        const std::string package = pool.Name(reader.U16(), Package);
        reader.U16();  // flags
        const unsigned targets = reader.U16();
        reader.Take(std::size_t{2} * targets);
        if (targets == 0) module.exports.insert(DottedName(package));
    }
}

ClassFile Read(Reader reader) {
    if (reader.U32() != kMagic) Fail();
    reader.Take(4);  // version
    const ConstantPool pool(reader);
    reader.U16();  // flags
    ClassFile file;
    file.name = pool.Name(reader.U16(), Class);
    if (const unsigned superclass = reader.U16(); superclass != 0) {
        file.superclass = pool.Name(superclass, Class);
    }
    file.references = pool.Classes();
    reader.Take(std::size_t{2} * reader.U16());  // interfaces
    SkipMembers(reader);                         // fields
    SkipMembers(reader);                         // methods
    std::string mainClass;
    for (unsigned count = reader.U16(); count > 0; --count) {
        const std::string_view attribute = pool.Text(reader.U16());
        Reader content(reader.Take(reader.U32()));
        if (attribute == "Module") {
            ReadModule(content, pool, file.module.emplace());
        } else if (attribute == "ModuleMainClass") {
            mainClass = DottedName(pool.Name(content.U16(), Class));
        }
    }
    if (file.module) file.module->mainClass = std::move(mainClass);
    return file;
}

}  // namespace

std::optional<ClassFile> ReadClassFile(std::span<const std::byte> bytes) {
    try {
        return Read(Reader(bytes));
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::string DottedName(std::string_view name) {
    std::string dotted(name);
    std::replace(dotted.begin(), dotted.end(), '/', '.');
    return dotted;
}

std::string_view PackageOf(std::string_view name) {
    const std::size_t slash = name.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : name.substr(0, slash);
}

}  // namespace tarn::tools
