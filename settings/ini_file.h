#pragma once

#include <string>
#include <vector>

namespace tarn {

/// A settings file on disk, read and written through Windows' profile functions. Holds its path
/// only; nothing stays open between two calls.
class IniFile {
  public:
    explicit IniFile(std::wstring path);
    virtual ~IniFile();

    /// Reads the file's first 4 bytes into `buffer`. Returns 0, or the Windows error code: how a
    /// caller finds out whether the file is there.
    virtual unsigned long Probe(unsigned char (&buffer)[4]) const;

    /// The value of a key, of any length; empty when the file, the section or the key is absent
    /// (`GetPrivateProfileStringW`).
    virtual std::wstring GetValue(const wchar_t* section, const wchar_t* key) const;

    /// All section names, in file order (`GetPrivateProfileSectionNamesW`).
    virtual std::vector<std::wstring> GetSectionNames() const;

    /// Writes one value (`WritePrivateProfileStringW`). Returns whether that worked.
    virtual bool SetValue(const wchar_t* section, const wchar_t* key,
                          const std::wstring& value) const;

    /// Deletes the file (`DeleteFileW`). Returns whether that worked.
    virtual bool Remove() const;

    const std::wstring& path() const { return path_; }

  protected:
    /// All section names as Windows gives them, each terminated; empty when there are none, or the
    /// file cannot be read.
    std::wstring ReadSectionNames() const;

    /// The same for the keys of a section, the first one of that name where there are several.
    std::wstring ReadKeyNames(const wchar_t* section) const { return Read(section, nullptr, 2); }

  private:
    /// `spare`: by how much less than the buffer a text that was cut is.
    std::wstring Read(const wchar_t* section, const wchar_t* key, std::size_t spare) const;

    std::wstring path_;
};

}  // namespace tarn
