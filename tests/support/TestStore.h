#pragma once

#include <QString>

namespace vantrel::test {

/// Whether the layout stores of the tests are on a server instead of in files. The environment
/// variable VANTREL_TEST_STORE says so by the word "postgres": the same tests run once with each.
bool StoresAreOnServer();

/// A fresh layout store with its printer types, which is gone with its owner.
class TestStore
{
public:
    /// @param path  of the file, where stores are files
    explicit TestStore(const QString& path);
    TestStore(const TestStore&) = delete;
    TestStore& operator=(const TestStore&) = delete;
    ~TestStore();

    /// What the connections that use it are opened with.
    const QString& Location() const { return m_location; }

private:
    QString m_path;
    QString m_location;
};

/// The location of the store that was made for the path of a file.
QString StoreAt(const QString& path);

/// From now on the store refuses rows whose `C_Value` is this text, as one does whose disk fails.
/// @param action  "INSERT" or "UPDATE"
void RefuseValue(const QString& location, const QString& action, const QString& text);

/// From now on the store refuses rows for which a condition on the new row holds.
/// @param change  such as "INSERT ON Controls"
/// @param condition  in SQL, with the new row as `NEW`
void RefuseRows(const QString& location, const QString& change, const QString& condition);

/// Changes the store over a connection of its own, which knows nothing of layouts.
void RunOnStore(const QString& location, const QString& sql);

} // namespace vantrel::test
