#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarn::test {

/// A settings file in the making: sections and keys in the order in which they were first set.
class SettingsText {
  public:
    /// Sets the key; an earlier value of it is replaced.
    SettingsText& Set(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    /// The same in the two sections that hold most keys.
    SettingsText& Application(std::wstring_view key, std::wstring_view value);
    SettingsText& Runtime(std::wstring_view key, std::wstring_view value);
    /// Takes the key out again.
    SettingsText& Remove(std::wstring_view section, std::wstring_view key);

    /// The file's text, lines ended by CR LF.
    std::wstring Text() const;

  private:
    struct Section {
        std::wstring name;
        std::vector<std::pair<std::wstring, std::wstring>> values;
    };
    std::vector<Section> sections_;
};

}  // namespace tarn::test
