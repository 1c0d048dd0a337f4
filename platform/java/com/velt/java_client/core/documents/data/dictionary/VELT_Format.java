package com.velt.java_client.core.documents.data.dictionary;

import java.text.DecimalFormat;
import java.text.DecimalFormatSymbols;
import java.time.DateTimeException;
import java.time.LocalDateTime;
import java.time.format.DateTimeFormatter;
import java.util.Locale;

/**
 * Texts of stored values under patterns of the Java library. Neither the locale nor the time zone
 * of the machine has a part in them.
 */
public final class VELT_Format {
  /** Where stored dates count from. */
  private static final LocalDateTime ORIGIN = LocalDateTime.of(1582, 10, 14, 0, 0);

  /** English names, points and commas in numbers, weeks that begin on Sunday. */
  private static final Locale LOCALE = Locale.ENGLISH;

  private VELT_Format() {}

  /**
   * The date and time that lies {@code seconds} after midnight at the start of 14 October 1582,
   * under a pattern of {@link DateTimeFormatter}. A fraction is cut to whole nanoseconds.
   *
   * @throws DateTimeException if there is no such date and time or the pattern asks for more
   * @throws IllegalArgumentException if the pattern is invalid
   */
  public static String toCustomDateString(double seconds, String pattern) {
    if (!Double.isFinite(seconds)) {
      throw new DateTimeException("not a date: " + seconds);
    }
    double whole = Math.floor(seconds);
    long nanos = (long) ((seconds - whole) * 1e9);
    // A number beyond the range of long becomes the largest one, which no date has either.
    LocalDateTime time = ORIGIN.plusSeconds((long) whole).plusNanos(nanos);
    return time.format(DateTimeFormatter.ofPattern(pattern, LOCALE));
  }

  /**
   * The number under a pattern of {@link DecimalFormat}, halves rounded to even.
   *
   * @throws IllegalArgumentException if the pattern is invalid
   */
  public static String toCustomDecimalString(double value, String pattern) {
    return new DecimalFormat(pattern, DecimalFormatSymbols.getInstance(LOCALE)).format(value);
  }
}
