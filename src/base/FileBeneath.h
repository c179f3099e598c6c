#pragma once

#include <QString>

namespace vantrel {

/// A file that is opened for reading by a name that came from outside, such as a value of a record,
/// and that is certainly within a folder: the name is relative and has no "..", and no part of it
/// is a link, not even one that is put there while it is opened. The folder itself may be reached
/// by links.
class FileBeneath
{
public:
    /// `StepByStep` opens one part of the name after the other, for systems that cannot open all of
    /// it with one call.
    enum class Way { AtOnce, StepByStep };

    /// Fails with `FileNotFound` if there is no such file, and with `PathNotFound` if the folder
    /// cannot be opened, if the name leads out of it, over a link or to something that is no file,
    /// or if the file cannot be opened. The text says which of these, without the folder.
    /// @param preferred  `StepByStep` for tests
    FileBeneath(const QString& folder, const QString& name, Way preferred = Way::AtOnce);
    FileBeneath(const FileBeneath&) = delete;
    FileBeneath& operator=(const FileBeneath&) = delete;
    ~FileBeneath();

    /// Of a regular file, open for reading; closed with this object.
    int Descriptor() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

} // namespace vantrel
