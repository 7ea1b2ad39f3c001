// OpenStores: chooses the reader for a path.
#include "localstores/OpenStores.h"

#include <filesystem>

#include "localstores/OpenFailure.h"
#include "maildir/Maildir.h"
#include "mbox/Mbox.h"
#include "model/FilePath.h"
#include "pst/PstStore.h"
#include "sample/SampleMailbox.h"

namespace localstores {
namespace {

StoreList OpenDirectory(const std::filesystem::path& directory, std::string_view path) {
    if (HoldsNestedMaildirs(directory, path)) return {ReadNestedMaildir(directory, path)};
    if (IsMaildir(directory)) return {ReadMaildir(directory, path)};
    if (HoldsMboxes(directory, path)) return {ReadMboxes(directory, path)};
    throw NoSuchStore(path, "the directory is no Maildir, and there are no Maildirs and no mbox files in it");
}

}  // namespace

StoreList OpenStores(std::string_view path) {
    if (IsSamplePath(path)) return SampleMailbox(path);

    const std::filesystem::path file = PathOf(path);
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) throw NoSuchStore(path, "there is no such file or directory");
    if (std::filesystem::is_directory(status)) return OpenDirectory(file, path);
    if (std::filesystem::is_regular_file(status)) return {ReadPst(file, path)};
    throw NoSuchStore(path, "it is neither a file nor a directory");
}

}  // namespace localstores
