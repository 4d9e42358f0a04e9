//! strsim: distances.

unsafe fn text<'a>(begin: *const u8, size: usize) -> &'a str {
    std::str::from_utf8_unchecked(super::bytes(begin, size))
}

#[no_mangle]
pub unsafe extern "C" fn peer_osa_distance(a: *const u8, n: usize, b: *const u8, m: usize) -> usize {
    strsim::osa_distance(text(a, n), text(b, m))
}

#[no_mangle]
pub unsafe extern "C" fn peer_jaro_winkler(a: *const u8, n: usize, b: *const u8, m: usize) -> f64 {
    strsim::jaro_winkler(text(a, n), text(b, m))
}
