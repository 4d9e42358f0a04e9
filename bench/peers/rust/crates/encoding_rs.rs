//! encoding_rs: the character sets of the web.
use encoding_rs::{mem, Encoding, WINDOWS_1252};

unsafe fn room<'a>(out: *mut u8, size: usize) -> &'a mut [u8] {
    std::slice::from_raw_parts_mut(out, size)
}

#[no_mangle]
pub unsafe extern "C" fn peer_latin1_decode(text: *const u8, size: usize, out: *mut u8, space: usize) -> usize {
    mem::convert_latin1_to_utf8(super::bytes(text, size), room(out, space))
}

#[no_mangle]
pub unsafe extern "C" fn peer_latin1_encode(text: *const u8, size: usize, out: *mut u8, space: usize) -> usize {
    let source = super::bytes(text, size);
    // It panics in debug builds, and gives garbage in others, where a character is above U+00FF.
    if !mem::is_utf8_latin1(source) {
        return 0;
    }
    mem::convert_utf8_to_latin1_lossy(source, room(out, space))
}

#[no_mangle]
pub unsafe extern "C" fn peer_windows1252_decode(text: *const u8, size: usize, out: *mut u8, space: usize) -> usize {
    let mut decoder = WINDOWS_1252.new_decoder_without_bom_handling();
    decoder.decode_to_utf8_without_replacement(super::bytes(text, size), room(out, space), true).2
}

#[no_mangle]
pub unsafe extern "C" fn peer_windows1252_encode(text: *const u8, size: usize, out: *mut u8, space: usize) -> usize {
    let source = std::str::from_utf8_unchecked(super::bytes(text, size));
    WINDOWS_1252.new_encoder().encode_from_utf8(source, room(out, space), true).2
}

#[no_mangle]
pub unsafe extern "C" fn peer_ascii_prefix(text: *const u8, size: usize) -> usize {
    Encoding::ascii_valid_up_to(super::bytes(text, size))
}
