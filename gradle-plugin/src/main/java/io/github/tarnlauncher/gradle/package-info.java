/** The Gradle plugin: the extension {@code tarn} and the tasks {@code tarnWrap}, {@code tarnCheck} and {@code tarnZip}. */
package io.github.tarnlauncher.gradle;
