// The kinds of all file managers that are followed, each defined in its own file of this folder.

#pragma once

#include "selection/file_manager_kind.h"

namespace pinorama {

extern const FileManagerKind kNautilus;
extern const FileManagerKind kNemo;
extern const FileManagerKind kNemoDesktop;
extern const FileManagerKind kCaja;
extern const FileManagerKind kThunar;
extern const FileManagerKind kPCManFM;
extern const FileManagerKind kPCManFMQt;
extern const FileManagerKind kDolphin;
extern const FileManagerKind kSpaceFM;
extern const FileManagerKind kKrusader;

}  // namespace pinorama
