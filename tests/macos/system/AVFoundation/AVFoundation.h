// What the program asks of AVFoundation, for type checks with headers that come without it.
#pragma once

#import <Foundation/Foundation.h>

typedef NSString* AVMediaType;
extern AVMediaType _Nonnull const AVMediaTypeAudio;
extern AVMediaType _Nonnull const AVMediaTypeVideo;

typedef NS_ENUM(NSInteger, AVAuthorizationStatus) {
    AVAuthorizationStatusNotDetermined,
    AVAuthorizationStatusRestricted,
    AVAuthorizationStatusDenied,
    AVAuthorizationStatusAuthorized,
};

@interface AVCaptureDevice : NSObject
+ (AVAuthorizationStatus)authorizationStatusForMediaType:(nonnull AVMediaType)mediaType;
+ (void)requestAccessForMediaType:(nonnull AVMediaType)mediaType
                completionHandler:(void (^_Nonnull)(BOOL granted))handler;
@end
