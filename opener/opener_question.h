// A question to the openers, and what has come of it so far. Its owner keeps it as long as it wants
// to know.
//
//     const auto question = client.ask({.task = OpenTask::facts, .paths = {"/media/card"}});
//     if (client.wait(*question, 20ms) == OpenStage::done) use(question->facts());

#pragma once

#include "opener/opener_protocol.h"
#include "pictures/picture_file.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pinorama {

enum class OpenStage {
    none,       // nothing is wanted
    waiting,    // nothing is known yet
    leftAlone,  // not even asked for: its file system keeps other openers
    looked,     // known what is there; its bytes have not come
    done,       // all is known
    noOpener,   // there is no opener, or it cannot start
};

class OpenerQuestion {
public:
    // Receives the names of OpenTask::names, part by part.
    using TakeNames = std::function<void(const std::vector<std::string>& names)>;

    OpenerQuestion() = default;
    OpenerQuestion(OpenRequest request, TakeNames take, DescriptorHolder content)
        : request_(std::move(request)), takeNames_(std::move(take)), content_(std::move(content))
    {
    }

    const OpenRequest& request() const { return request_; }
    OpenStage stage() const { return stage_; }

    // Whether no more will come of it.
    bool isAnswered() const { return stage_ == OpenStage::done || stage_ == OpenStage::noOpener; }

    // Hands over the file of OpenTask::open, once it is done.
    PictureFile takeFile() { return std::exchange(file_, {}); }

    // What has been found out when it is done, for OpenTask::facts and OpenTask::count.
    const std::vector<ItemFacts>& facts() const { return facts_; }
    const FolderCount& count() const { return count_; }

    // For OpenTask::save: errno, or 0 when the file is there.
    int error() const { return error_; }

private:
    friend class OpenerClient;

    // Whether nothing more will come of it soon.
    bool isOver() const { return stage_ != OpenStage::waiting && stage_ != OpenStage::looked; }

    // Takes in what an opener has found out.
    void take(const OpenReply& reply, DescriptorHolder& descriptor);

    OpenRequest request_;
    TakeNames takeNames_;
    DescriptorHolder content_;  // of a file to be saved
    OpenStage stage_ = OpenStage::none;
    std::uint32_t number_ = 0;  // with which an opener has it; 0 if none has
    int deaths_ = 0;            // of openers that had it
    bool hasNames_ = false;     // some of them; they cannot be had from another opener
    PictureFile file_;
    std::vector<ItemFacts> facts_;
    FolderCount count_;
    int error_ = 0;
};

}  // namespace pinorama
