#include "platform/macos/MacPrivacy.h"

#import <AVFoundation/AVFoundation.h>

namespace tessivo::MacPrivacy {

namespace {

AVMediaType media(MediaType type) {
    return type == MediaType::video ? AVMediaTypeVideo : AVMediaTypeAudio;
}

} // namespace

std::int64_t authorizationStatus(MediaType type) {
    return [AVCaptureDevice authorizationStatusForMediaType:media(type)];
}

void requestAccess(MediaType type, std::function<void(bool)> answer) {
    [AVCaptureDevice requestAccessForMediaType:media(type)
                             completionHandler:^(BOOL granted) {
                               answer(granted);
                             }];
}

} // namespace tessivo::MacPrivacy
