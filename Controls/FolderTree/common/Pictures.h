// Pictures: the control's picture holders. A picture is a number to the grid; the window knows what it looks like.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace foldertree {

/// Which picture a cell shows. 0 is no picture (a null picture reference).
enum class Picture : uint8_t {
    None = 0,
    Calendar,
    Contact,
    Journal,
    Mail,
    Note,
    Task,
    Trash,
    Inbox,
    Outbox,
    Sent,
    Home,
    Draft,
    FolderClosed,
    FolderOpen,
    AdList,
};
inline constexpr int pictureCount = 16;  // with Picture::None

/// The twelve tagged holders `picItemType`, by index.
struct PictureHolder {
    Picture picture;
    std::string_view tag;
};
inline constexpr std::array<PictureHolder, 12> picItemType{{
    {Picture::Calendar, "calendar"},
    {Picture::Contact, "contact"},
    {Picture::Journal, "journal"},
    {Picture::Mail, "mail"},
    {Picture::Note, "note"},
    {Picture::Task, "task"},
    {Picture::Trash, "trash"},
    {Picture::Inbox, "inbox"},
    {Picture::Outbox, "outbox"},
    {Picture::Sent, "sent"},
    {Picture::Home, "home"},
    {Picture::Draft, "draft"},
}};
inline constexpr Picture picFolderClosed = Picture::FolderClosed;
inline constexpr Picture picFolderOpen = Picture::FolderOpen;
inline constexpr Picture picAdList = Picture::AdList;

}  // namespace foldertree
