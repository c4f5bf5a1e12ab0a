/** What the Maven and the Gradle plugin share: the companion program and how it is run. */
package io.github.tarnlauncher.plugin;
