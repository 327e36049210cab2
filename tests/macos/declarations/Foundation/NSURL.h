// Foundation: URLs and what fetches them. Read by way of Foundation/Foundation.h only.
#pragma once

NS_ASSUME_NONNULL_BEGIN

// --- NSURL ------------------------------------------------------------------------------------

@interface NSURL : NSObject <NSSecureCoding, NSCopying>

// Not a nil result for any path; a relative one is made absolute.
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDir API_AVAILABLE(macos(10.5));
// Nil for what is no address. From macOS 14 on other characters are percent-encoded first.
+ (nullable instancetype)URLWithString:(NSString*)URLString;
+ (nullable instancetype)URLWithString:(NSString*)URLString
             encodingInvalidCharacters:(BOOL)encodingInvalidCharacters API_AVAILABLE(macos(14.0));
@property(nullable, readonly, copy) NSString* absoluteString;
@property(nullable, readonly, copy) NSString* path;
@property(readonly, getter=isFileURL) BOOL fileURL;
// File URLs only; looks at the file system.
- (BOOL)checkResourceIsReachableAndReturnError:(NSError**)error API_AVAILABLE(macos(10.6));

@end

// --- NSURLRequest -----------------------------------------------------------------------------

typedef NS_ENUM(NSUInteger, NSURLRequestCachePolicy) {
  NSURLRequestReloadIgnoringLocalCacheData = 1,
};

@interface NSURLRequest : NSObject <NSSecureCoding, NSCopying, NSMutableCopying>

@property(nullable, readonly, copy) NSURL* URL;
// The time-out, in seconds, is of a pause in the answer.
+ (instancetype)requestWithURL:(NSURL*)URL
                   cachePolicy:(NSURLRequestCachePolicy)cachePolicy
               timeoutInterval:(NSTimeInterval)timeoutInterval;

@end

@interface NSMutableURLRequest : NSURLRequest

// Yes unless it is set.
@property BOOL HTTPShouldHandleCookies;

@end

// --- NSURLResponse ----------------------------------------------------------------------------

@interface NSURLResponse : NSObject <NSSecureCoding, NSCopying>
@end

@interface NSHTTPURLResponse : NSURLResponse

@property(readonly) NSInteger statusCode;

@end

// --- NSURLSession -----------------------------------------------------------------------------

@class NSCachedURLResponse;
@class NSURLSession;
@protocol NSURLSessionTaskDelegate;

API_AVAILABLE(macos(10.9)) @interface NSURLSessionTask : NSObject<NSCopying>

// Unique within its session.
@property(readonly) NSUInteger taskIdentifier;
// Of the last answer, that of a redirect which was not followed included.
@property(nullable, readonly, copy) NSURLResponse* response;
// Returns at once; the end is told as with any other error.
- (void)cancel;
- (void)resume;
// Kept until the task has ended; cannot be changed after the resumption. It hears of the methods of
// the more special delegates too, on the session's queue.
@property(nullable, retain) id<NSURLSessionTaskDelegate> delegate API_AVAILABLE(macos(12.0));

@end

API_AVAILABLE(macos(10.9)) @interface NSURLSessionDataTask : NSURLSessionTask
@end

@protocol NSURLSessionDelegate <NSObject>
@end

@protocol NSURLSessionTaskDelegate <NSURLSessionDelegate>
@optional
// The handler must be called; nil makes the redirect itself the answer.
- (void)URLSession:(NSURLSession*)session
                          task:(NSURLSessionTask*)task
    willPerformHTTPRedirection:(NSHTTPURLResponse*)response
                    newRequest:(NSURLRequest*)request
             completionHandler:(void (^)(NSURLRequest* _Nullable))completionHandler;
// The last of a task. The error is of the transport; a status is none.
- (void)URLSession:(NSURLSession*)session
                    task:(NSURLSessionTask*)task
    didCompleteWithError:(nullable NSError*)error;
@end

@protocol NSURLSessionDataDelegate <NSURLSessionTaskDelegate>
@optional
// Decompressed; perhaps of several regions, which `bytes` copies into one.
- (void)URLSession:(NSURLSession*)session
          dataTask:(NSURLSessionDataTask*)dataTask
    didReceiveData:(NSData*)data;
// The handler must be called; nil keeps nothing.
- (void)URLSession:(NSURLSession*)session
             dataTask:(NSURLSessionDataTask*)dataTask
    willCacheResponse:(NSCachedURLResponse*)proposedResponse
    completionHandler:(void (^)(NSCachedURLResponse* _Nullable))completionHandler;
@end

// Any thread.
API_AVAILABLE(macos(10.9)) @interface NSURLSession : NSObject

@property(class, readonly, strong) NSURLSession* sharedSession;
// Suspended at first.
- (NSURLSessionDataTask*)dataTaskWithRequest:(NSURLRequest*)request;

@end

NS_ASSUME_NONNULL_END
