#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarn::tools {

/// For tests: builds a class file without members, or a module-info.class.
class ClassOf {
  public:
    explicit ClassOf(std::string_view name, std::string_view superclass = "java/lang/Object")
        : this_(Refer(kClass, name)), super_(superclass.empty() ? 0 : Refer(kClass, superclass)) {}

    /// The module-info.class of a module.
    static ClassOf Module(std::string_view name) {
        ClassOf result("module-info", "");
        result.module_ = result.Refer(kModule, name);
        return result;
    }

    ClassOf& Requires(std::string_view module, unsigned flags = 0) {
        requirements_ += Number(Refer(kModule, module), 2) + Number(flags, 2) + Number(0, 2);
        ++requirementCount_;
        return *this;
    }

    ClassOf& Exports(std::string_view package, const std::vector<std::string>& targets = {}) {
        exports_ += Number(Refer(kPackage, package), 2) + Number(0, 2) + Number(targets.size(), 2);
        for (const std::string& target : targets) exports_ += Number(Refer(kModule, target), 2);
        ++exportCount_;
        return *this;
    }

    ClassOf& Main(std::string_view mainClass) {
        AddAttribute("ModuleMainClass", Number(Refer(kClass, mainClass), 2));
        return *this;
    }

    ClassOf& Refers(std::string_view className) {
        Refer(kClass, className);
        return *this;
    }

    ClassOf& Version(unsigned java) {
        major_ = 44 + java;
        return *this;
    }

    std::string Content() const {
        ClassOf whole = *this;
        if (module_ != 0) {
            whole.AddAttribute("Module", Number(module_, 2) + Number(0, 4) +
                                             Number(requirementCount_, 2) + requirements_ +
                                             Number(exportCount_, 2) + exports_ + Number(0, 6));
        }
        return Number(0xCAFEBABE, 4) + Number(0, 2) + Number(major_, 2) +
               Number(whole.poolSize_ + 1, 2) + whole.pool_ + Number(0, 2) + Number(this_, 2) +
               Number(super_, 2) + Number(0, 6) + Number(whole.attributeCount_, 2) +
               whole.attributes_;
    }

  private:
    static constexpr unsigned kText = 1, kClass = 7, kModule = 19, kPackage = 20;

    static std::string Number(std::size_t value, int bytes) {
        std::string text;
        for (int at = bytes - 1; at >= 0; --at) {
            text += at < 8 ? static_cast<char>(value >> (8 * at) & 0xFF) : '\0';
        }
        return text;
    }

    std::size_t Text(std::string_view text) {
        pool_ += Number(kText, 1) + Number(text.size(), 2) + std::string(text);
        return ++poolSize_;
    }

    std::size_t Refer(unsigned tag, std::string_view name) {
        const std::size_t text = Text(name);
        pool_ += Number(tag, 1) + Number(text, 2);
        return ++poolSize_;
    }

    void AddAttribute(std::string_view name, const std::string& content) {
        const std::size_t text = Text(name);
        attributes_ += Number(text, 2) + Number(content.size(), 4) + content;
        ++attributeCount_;
    }

    std::string pool_, requirements_, exports_, attributes_;
    std::size_t poolSize_ = 0, requirementCount_ = 0, exportCount_ = 0, attributeCount_ = 0;
    std::size_t module_ = 0;
    unsigned major_ = 61;
    std::size_t this_;
    std::size_t super_;
};

}  // namespace tarn::tools
